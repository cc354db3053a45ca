#include "nui/reader/layout_file.h"

#include "nui/engine/engine.h"
#include "nui/menus/popup_menu.h"
#include "nui/reader/layout_diagnostics.h"
#include "nui/reader/nui_file_reader.h"
#include "nui/reader/resource_path.h"
#include "nui/widgets/widget.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace nui {

namespace {

using Fault = LayoutFault::Kind;

/// In a pack's widgets: the one that was built last.
constexpr const char* LastBuilt = "-";

std::string withoutSpaces(const Json& text)
{
    std::string_view trimmed(text.GetString(), text.GetStringLength());
    trimmed.remove_prefix(std::min(trimmed.find_first_not_of(' '), trimmed.size()));
    trimmed = trimmed.substr(0, trimmed.find_last_not_of(' ') + 1);
    return std::string(trimmed);
}

/// What is there already stays.
void merge(WidgetPack& pack, const WidgetPack& included)
{
    pack.constants.insert(included.constants.begin(), included.constants.end());
    pack.theme.insert(included.theme.begin(), included.theme.end());
    pack.widgets.insert(included.widgets.begin(), included.widgets.end());
    pack.menus.insert(included.menus.begin(), included.menus.end());
}

const char* nameOf(rapidjson::Type type)
{
    return type == rapidjson::kArrayType ? "a list" : "an object";
}

} // namespace

LayoutFile::LayoutFile(LayoutLoader& loader, WidgetPack& pack, IncludeCache& cache,
                       WidgetMap* target)
    : loader_(loader), pack_(pack), cache_(cache), target_(target)
{
}

LayoutFile::~LayoutFile() = default;

LayoutFile::Outcome LayoutFile::load(const std::string& name)
{
    const std::string path = joinPath(engine().basePath, name);
    const JsonFile file(path);
    if (!file.wasOpened())
        return Outcome::Missing;
    const FaultListener& listener = loader_.faultListener_;
    if (!file.isValid()) {
        if (listener)
            LayoutDiagnostics::reportSyntax(listener, path, file);
        return Outcome::Faulty;
    }
    if (listener)
        diagnostics_ = std::make_unique<LayoutDiagnostics>(listener, path, file.root());
    const bool isWhole = read(file.root());
    if (diagnostics_) {
        if (isWhole)
            diagnostics_->reportUnreadKeys();
        diagnostics_->tell();
    }
    return isWhole ? Outcome::Loaded : Outcome::Faulty;
}

bool LayoutFile::read(const Json& root)
{
    if (!root.IsObject()) {
        report(Fault::NotAnObject, root, {}, {});
        return false;
    }
    if (diagnostics_) {
        diagnostics_->noteObject(root);
        // Of use to editors alone.
        if (const auto schema = root.FindMember("$schema"); schema != root.MemberEnd())
            diagnostics_->noteRead(schema->value);
    }
    // The order is part of the format: what comes later may name what came before.
    if (const Json* const list = member(root, "include", rapidjson::kArrayType))
        readIncludes(*list);
    const Json* const config = member(root, "config", rapidjson::kObjectType);
    if (config != nullptr && !readConfig(*config))
        return false;
    if (const Json* const constants = member(root, "constants", rapidjson::kObjectType))
        readTexts(pack_.constants, *constants);
    if (const Json* const themes = member(root, "themes", rapidjson::kObjectType))
        readThemes(*themes);
    forEach(root, "menus", &LayoutFile::readMenu);
    forEach(root, "templates", &LayoutFile::readTemplate);
    forEach(root, "widgets", &LayoutFile::readWidget);
    if (auto* const init = dynamic_cast<ModuleInit*>(moduleInit_.get()))
        init->init(pack_, target_ == nullptr ? pack_.widgets : *target_);
    return true;
}

void LayoutFile::readIncludes(const Json& list)
{
    for (const Json& item : list.GetArray()) {
        if (item.IsString())
            include(withoutSpaces(item), item);
        else
            report(Fault::WrongType, item, "include", "a list of texts");
    }
}

void LayoutFile::include(const std::string& name, const Json& at)
{
    auto known = cache_.find(name);
    if (known == cache_.end()) {
        const std::string path = joinPath(engine().basePath, name);
        if (!loader_.loading_.insert(path).second) {
            report(Fault::CircularInclude, at, "include", name);
            return;
        }
        WidgetPack included;
        const Outcome outcome = LayoutFile(loader_, included, cache_, nullptr).load(name);
        loader_.loading_.erase(path);
        if (outcome == Outcome::Missing)
            report(Fault::MissingInclude, at, "include", name);
        if (outcome != Outcome::Loaded)
            return;
        known = cache_.insert_or_assign(name, std::move(included)).first;
    }
    merge(pack_, known->second);
}

bool LayoutFile::readConfig(const Json& config)
{
    if (diagnostics_)
        diagnostics_->noteObject(config);
    const auto folder = config.FindMember("baseResDir");
    if (folder == config.MemberEnd() || !folder->value.IsString()) {
        report(Fault::ConfigWithoutResources, config, "config", {});
        return false;
    }
    if (diagnostics_)
        diagnostics_->noteRead(folder->value);
    engine().resourceDirectory = joinPath(engine().basePath, folder->value.GetString());
    return true;
}

void LayoutFile::readTexts(std::map<std::string, std::string>& texts, const Json& object)
{
    for (const auto& [name, value] : object.GetObject()) {
        if (value.IsString())
            texts.insert_or_assign(name.GetString(), withoutSpaces(value));
        else
            report(Fault::WrongType, value, name.GetString(), "a text");
    }
}

void LayoutFile::readThemes(const Json& themes)
{
    if (loader_.theme_.empty() && !themes.ObjectEmpty())
        loader_.theme_ = themes.MemberBegin()->name.GetString();
    const auto theme = themes.FindMember(loader_.theme_.c_str());
    if (theme != themes.MemberEnd() && theme->value.IsObject())
        readTexts(pack_.theme, theme->value);
}

void LayoutFile::readMenu(const Json& item)
{
    NuiFileReader reader(pack_, loader_, item, diagnostics_.get());
    const auto menu = std::make_shared<PopupMenu>(reader);
    menu->read(reader);
    if (!menu->id.empty())
        pack_.menus.insert_or_assign(menu->id, menu);
}

void LayoutFile::readTemplate(const Json& item)
{
    NuiFileReader reader(pack_, loader_, item, diagnostics_.get());
    const WidgetPtr widget = loader_.build(reader, nullptr);
    if (!widget || widget->id.empty())
        return;
    pack_.widgets.insert_or_assign(widget->id, widget);
    pack_.widgets.insert_or_assign(LastBuilt, widget);
}

void LayoutFile::readWidget(const Json& item)
{
    NuiFileReader reader(pack_, loader_, item, diagnostics_.get());
    const WidgetPtr widget = loader_.build(reader, nullptr);
    if (!widget)
        return;
    if (!widget->id.empty()) {
        pack_.widgets.insert_or_assign(widget->id, widget);
    } else if (target_ != nullptr) {
        widget->id = freeName();
    } else {
        return;
    }
    if (target_ != nullptr)
        target_->insert_or_assign(widget->id, widget);
    pack_.widgets.insert_or_assign(LastBuilt, widget);
    if (dynamic_cast<ModuleInit*>(widget.get()) != nullptr)
        moduleInit_ = widget;
}

std::string LayoutFile::freeName()
{
    const auto name = [this] { return "widget" + std::to_string(loader_.widgetCounter_); };
    while (target_->contains(name()))
        ++loader_.widgetCounter_;
    return name();
}

const Json* LayoutFile::member(const Json& object, const char* key, rapidjson::Type type)
{
    const auto found = object.FindMember(key);
    if (found == object.MemberEnd())
        return nullptr;
    if (diagnostics_)
        diagnostics_->noteRead(found->value);
    if (found->value.GetType() == type)
        return &found->value;
    report(Fault::WrongType, found->value, key, nameOf(type));
    return nullptr;
}

void LayoutFile::forEach(const Json& root, const char* key,
                         void (LayoutFile::*readItem)(const Json& item))
{
    const Json* const list = member(root, key, rapidjson::kArrayType);
    if (list == nullptr)
        return;
    for (const Json& item : list->GetArray())
        (this->*readItem)(item);
}

void LayoutFile::report(LayoutFault::Kind kind, const Json& at, const std::string& key,
                        const std::string& detail) const
{
    if (diagnostics_)
        diagnostics_->report(kind, at, key, detail);
}

} // namespace nui
