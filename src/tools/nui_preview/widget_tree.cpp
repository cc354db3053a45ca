#include "tools/nui_preview/widget_tree.h"

#include "nui/widgets/container.h"
#include "nui/widgets/pages_container.h"
#include "nui/widgets/progress_bar.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/text_label.h"

#include <array>
#include <cmath>

namespace nrd::tools::preview {

namespace {

using json = nlohmann::ordered_json;

/// The words of layout files, by the value of the flags.
constexpr std::array visibility_words = {"Collapsed", "Hidden", "Overlapping",        "Visible",
                                         "",          "",       "ClippedOverlapping", "Clipped"};

/// Four decimals: beyond them processors differ, and no layout is that fine.
json number(float value)
{
    constexpr double decimals = 10000;
    const double rounded = std::round(static_cast<double>(value) * decimals) / decimals;
    const bool is_whole = rounded == std::trunc(rounded) && std::abs(rounded) < 1e9;
    return is_whole ? json(static_cast<int>(rounded)) : json(rounded);
}

std::string visibility_word(std::uint32_t flags)
{
    const bool known = flags < visibility_words.size() && *visibility_words[flags] != '\0';
    return known ? visibility_words[flags] : std::to_string(flags);
}

void add_place(json& entry, const nui::Widget& widget)
{
    const bool drawn = widget.parent == nullptr || widget.parent->isOnScreen();
    entry["x"] = number(drawn ? widget.x : widget.localX);
    entry["y"] = number(drawn ? widget.y : widget.localY);
    entry["width"] = number(widget.width);
    entry["height"] = number(widget.height);
}

json children_of(nui::Widget& widget)
{
    json children = json::array();
    if (const auto* const container = dynamic_cast<nui::Container*>(&widget)) {
        for (const nui::WidgetPtr& child : container->children()) {
            children.push_back(tree_of(*child));
        }
    }
    return children;
}

} // namespace

json tree_of(nui::Widget& widget)
{
    json entry = {{"class", widget.className()}, {"id", widget.id}, {"name", widget.name}};
    if (const auto* const label = dynamic_cast<nui::TextLabel*>(&widget)) {
        entry["text"] = label->getText();
    }
    add_place(entry, widget);
    entry["visibility"] = visibility_word(widget.visibility);
    entry["enabled"] = widget.touchEnabled;
    const nui::Screen* const screen = widget.screen();
    entry["focused"] = screen != nullptr && screen->focusedWidget.get() == &widget;
    if (const auto* const bar = dynamic_cast<nui::ProgressBar*>(&widget)) {
        entry["value"] = number(bar->value());
    }
    if (const auto* const pages = dynamic_cast<nui::PagesContainer*>(&widget)) {
        entry["page"] = pages->current() ? pages->current()->name : "";
    }
    entry["children"] = children_of(widget);
    return entry;
}

std::string tree_text(nui::Widget& widget)
{
    return tree_of(widget).dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}

} // namespace nrd::tools::preview
