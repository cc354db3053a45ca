#include "support/nui/layout.h"

#include "misc/host_file_system.h"
#include "nui/engine/engine.h"
#include "nui/reader/widget_registry.h"
#include "support/file_content.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace nui::test {

namespace {

nrd::misc::path written(const nrd::misc::path& file, std::string_view content)
{
    nrd::test::write_file(file, content);
    return file;
}

void addRectangles(std::ostream& out, const Widget& widget, int depth)
{
    out << std::string(static_cast<std::size_t>(depth), ' ') << widget.name << ' ' << widget.localX
        << ' ' << widget.localY << ' ' << widget.width << ' ' << widget.height << '\n';
    if (const auto* const container = dynamic_cast<const Container*>(&widget)) {
        for (const WidgetPtr& child : container->children())
            addRectangles(out, *child, depth + 1);
    }
}

} // namespace

std::string hostPath(const nrd::misc::path& file)
{
    return nrd::misc::error_path_text(nrd::misc::to_host(file));
}

MeasuringEngine::MeasuringEngine()
{
    DisplayMetrics& metrics = Engine::create().metrics;
    metrics.width = 2000;
    metrics.height = 500;
    metrics.smallerSide = 500;
    metrics.usableWidth = 2000;
    metrics.usableHeight = 500;
    metrics.displayScale = 2;
    metrics.textScale = 3;
    registerToolkitClasses();
}

MeasuringEngine::~MeasuringEngine()
{
    Engine::close();
}

LayoutText::LayoutText(std::string_view json)
    : widgets_(LayoutLoader(hostPath(written(folder_ / "layout.json", json))).load())
{
}

WidgetPtr LayoutText::find(const std::string& id) const
{
    const auto found = widgets_.find(id);
    return found == widgets_.end() ? nullptr : found->second;
}

std::shared_ptr<Container> containerOf(std::string widgetJson)
{
    std::replace(widgetJson.begin(), widgetJson.end(), '\'', '"');
    const std::size_t open = widgetJson.find('{');
    widgetJson.insert(open + 1, R"("id": "root", "name": "root", )");
    const LayoutText layout(R"({"widgets": [)" + widgetJson + "]}");
    auto container = std::dynamic_pointer_cast<Container>(layout.find("root"));
    if (!container)
        throw std::invalid_argument("no container: " + widgetJson);
    return container;
}

void layOut(Container& root)
{
    if (!root.layout(layout_flag::First))
        root.layout(layout_flag::First & ~layout_flag::ResolveOwnSize);
    root.place();
}

std::string rectangles(const Widget& root)
{
    std::ostringstream out;
    addRectangles(out, root, 0);
    return out.str();
}

std::string laidOut(const std::string& widgetJson)
{
    const std::shared_ptr<Container> root = containerOf(widgetJson);
    layOut(*root);
    return rectangles(*root);
}

} // namespace nui::test
