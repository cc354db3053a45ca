#include "tools/nui_preview/layout_source.h"

#include "nui/engine/engine.h"
#include "nui/reader/layout_loader.h"
#include "nui/reader/resource_path.h"
#include "nui/widgets/screen.h"
#include "tools/nui_preview/host_path.h"

#include <algorithm>

namespace nrd::tools::preview {

namespace {

// The window of a widget that has none, where the widget's own size depends on it.
constexpr window_size made_screen_size = {800, 600};
constexpr nui::Color made_screen_background = 0xFFF0F0F0;

/// What the toolkit passes over without losing anything of the file.
bool is_remark(const nui::LayoutFault& fault)
{
    using enum nui::LayoutFault::Kind;
    return fault.kind == UnknownValue || fault.kind == UnknownKey || fault.kind == MissingPicture;
}

/// In the order of the file, which the widgets' numbers keep.
std::vector<nui::WidgetPtr> in_file_order(const nui::WidgetMap& widgets)
{
    std::vector<nui::WidgetPtr> ordered;
    for (const auto& [id, widget] : widgets) {
        if (widget && id != "-") {
            ordered.push_back(widget);
        }
    }
    std::stable_sort(ordered.begin(), ordered.end(), [](const auto& left, const auto& right) {
        return left->serial < right->serial;
    });
    return ordered;
}

nui::ScreenPtr first_screen(const std::vector<nui::WidgetPtr>& widgets, bool with_id)
{
    for (const nui::WidgetPtr& widget : widgets) {
        auto screen = std::dynamic_pointer_cast<nui::Screen>(widget);
        if (screen && (!with_id || !screen->id.empty())) {
            return screen;
        }
    }
    return nullptr;
}

bool depends_on_parent(nui::SizeMode mode)
{
    return mode == nui::Percent || mode == nui::Weight;
}

nui::ScreenPtr screen_around(const nui::WidgetPtr& widget)
{
    auto screen = std::make_shared<nui::Screen>();
    screen->backgroundColor = made_screen_background;
    if (depends_on_parent(widget->widthMode)) {
        screen->setWidth({static_cast<float>(made_screen_size.width), nui::Px});
    }
    if (depends_on_parent(widget->heightMode)) {
        screen->setHeight({static_cast<float>(made_screen_size.height), nui::Px});
    }
    screen->add(widget);
    return screen;
}

/// Includes can bring the screen too, so the pack is asked where the file itself has none.
nui::ScreenPtr pick_screen(const nui::WidgetMap& own, const nui::WidgetMap& pack)
{
    const std::vector<nui::WidgetPtr> widgets = in_file_order(own);
    nui::ScreenPtr screen = first_screen(widgets, true);
    if (!screen) {
        screen = first_screen(widgets, false);
    }
    if (!screen && widgets.empty()) {
        screen = first_screen(in_file_order(pack), true);
    }
    if (!screen && !widgets.empty()) {
        screen = screen_around(widgets.front());
    }
    return screen;
}

} // namespace

loaded_layout load_layout(const std::string& file, const std::optional<window_size>& size)
{
    loaded_layout loaded;
    nui::LayoutLoader loader(file);
    loader.setFaultListener([&](const nui::LayoutFault& fault) {
        (is_remark(fault) ? loaded.remarks : loaded.faults).push_back(sentenceFor(fault));
    });
    nui::IncludeCache includes;
    nui::WidgetMap widgets;
    const bool read = loader.loadInto(includes, widgets);
    loaded.files.push_back(file);
    for (const auto& [name, pack] : includes) {
        loaded.files.push_back(nui::joinPath(nui::engine().basePath, name));
    }
    if (!read && loaded.faults.empty()) {
        loaded.faults.push_back(file + ": the file cannot be read as a layout file.");
    }
    loaded.screen = pick_screen(widgets, loader.pack().widgets);
    if (!loaded.screen && loaded.faults.empty()) {
        loaded.faults.push_back(file + ": the file has no widget to show.");
    }
    if (loaded.screen && size) {
        loaded.screen->setWidth({static_cast<float>(size->width), nui::Px});
        loaded.screen->setHeight({static_cast<float>(size->height), nui::Px});
    }
    return loaded;
}

} // namespace nrd::tools::preview
