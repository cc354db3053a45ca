#include "nui/reader/layout_loader.h"

#include "nui/engine/engine.h"
#include "nui/reader/layout_file.h"
#include "nui/reader/nesting.h"
#include "nui/reader/nui_reader.h"
#include "nui/reader/resource_path.h"
#include "nui/reader/widget_registry.h"

#include <utility>

namespace nui {

LayoutLoader::LayoutLoader(std::string fileName) : fileName_(std::move(fileName)) {}

WidgetMap LayoutLoader::load()
{
    IncludeCache cache;
    loadFile(cache, nullptr);
    return pack_.widgets;
}

bool LayoutLoader::loadInto(IncludeCache& cache, WidgetMap& target)
{
    return loadFile(cache, &target);
}

bool LayoutLoader::reload()
{
    reloadList_.clear();
    widgetCounter_ = 0;
    reloading_ = true;
    reloadCache_.clear();
    loadFile(reloadCache_, nullptr);
    reloading_ = false;
    return true;
}

bool LayoutLoader::loadFile(IncludeCache& cache, WidgetMap* target)
{
    const LayoutFile::Outcome outcome = LayoutFile(*this, pack_, cache, target).load(fileName_);
    if (outcome == LayoutFile::Outcome::Missing && faultListener_) {
        LayoutFault fault;
        fault.kind = LayoutFault::Kind::MissingFile;
        fault.file = joinPath(engine().basePath, fileName_);
        faultListener_(fault);
    }
    return outcome == LayoutFile::Outcome::Loaded;
}

WidgetPtr LayoutLoader::build(NuiReader& reader, Widget* parent)
{
    const char* const className = reader.className();
    const WidgetPtr source = reader.templateWidget();
    WidgetPtr widget = make(className, source);
    if (!widget) {
        if (className != nullptr)
            reader.reportFault(LayoutFault::Kind::UnknownClass, className, "class");
        else
            reader.reportFault(LayoutFault::Kind::NoClass, {}, nullptr);
        return nullptr;
    }
    if (!hasRoom(reader, source ? levelsOf(*widget) : 1))
        return nullptr;
    widget->parent = parent;
    {
        const Level level(*this);
        widget->read(reader);
    }
    if (source) {
        if (widget->stateTemplates)
            widget->stateTemplates->normal = source;
        widget->readOverrides(reader, true);
    }
    widget->serial = ++widgetCounter_;
    if (reloading_)
        reloadList_.push_back(widget.get());
    return widget;
}

bool LayoutLoader::hasRoom(NuiReader& reader, int levels) const
{
    if (depth_ + levels <= MaxDepth)
        return true;
    reader.reportFault(LayoutFault::Kind::TooDeep, std::to_string(MaxDepth), nullptr);
    return false;
}

WidgetPtr LayoutLoader::make(const char* className, const WidgetPtr& source)
{
    if (className == nullptr)
        return source ? source->clone() : nullptr;
    WidgetPtr widget = createWidget(className);
    if (widget && source)
        widget->copyFromTemplate(*source);
    return widget;
}

} // namespace nui
