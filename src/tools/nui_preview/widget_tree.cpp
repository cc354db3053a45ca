#include "tools/nui_preview/widget_tree.h"

#include "nui/widgets/container.h"
#include "nui/widgets/pages_container.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/text_field.h"
#include "tools/nui_preview/widget_values.h"

#include <array>

namespace nrd::tools::preview {

namespace {

using json = nlohmann::ordered_json;

/// The words of layout files, by the value of the flags.
constexpr std::array visibility_words = {"Collapsed", "Hidden", "Overlapping",        "Visible",
                                         "",          "",       "ClippedOverlapping", "Clipped"};

std::string visibility_word(std::uint32_t flags)
{
    const bool known = flags < visibility_words.size() && *visibility_words[flags] != '\0';
    return known ? visibility_words[flags] : std::to_string(flags);
}

void add_place(json& entry, const nui::Widget& widget)
{
    const bool drawn = widget.parent == nullptr || widget.parent->isOnScreen();
    entry["x"] = tree_number(drawn ? widget.x : widget.localX);
    entry["y"] = tree_number(drawn ? widget.y : widget.localY);
    entry["width"] = tree_number(widget.width);
    entry["height"] = tree_number(widget.height);
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
    if (const auto* const field = dynamic_cast<nui::TextField*>(&widget)) {
        entry["caret"] = field->caret();
        entry["anchor"] = field->anchor();
    }
    add_place(entry, widget);
    entry["visibility"] = visibility_word(widget.visibility);
    entry["enabled"] = widget.touchEnabled;
    const nui::Screen* const screen = widget.screen();
    entry["focused"] = screen != nullptr && screen->focusedWidget.get() == &widget;
    add_values(entry, widget);
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
