#pragma once

#include "nui/widgets/container.h"
#include "nui/widgets/control_looks.h"
#include "nui/widgets/type_ahead.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace nui {

/// A list that scrolls, of whose items one is selected. The items are its children: those of the
/// layout file, and behind them one for each text of `items`, made of the item template or as a
/// label. A disabled item is passed over. A selection by the user raises plain_event::Activate.
class ListBox : public Cloneable<ListBox, Container>, public FormItem {
public:
    /// No item.
    static constexpr std::int32_t None = -1;

    ListBox();

    void drawContent() override;
    void drawChildren(Point position) override;
    void place() override;
    bool read(NuiReader& reader) override;
    void reloadText() override;
    [[nodiscard]] const char* className() const override { return "ListBox"; }

    /// Makes items of language keys or texts, in place of the former ones of that kind. Nothing
    /// is selected then.
    void setItems(std::vector<std::string> keys);
    [[nodiscard]] std::size_t count() const { return children().size(); }
    /// What the first label in the item says; empty for no such item.
    [[nodiscard]] std::string itemText(std::int32_t index) const;
    /// The first item with that text, or None.
    [[nodiscard]] std::int32_t indexOf(const std::string& text) const;
    /// Where typed text leads to: from item to item with the same letter, and with letters one
    /// soon after another to the item that begins with them all. None if there is no such item.
    [[nodiscard]] std::int32_t indexAfterTyping(const std::string& typed);
    /// A blank is now the next of these letters, and no command.
    [[nodiscard]] bool isBeingTypedTo() const { return typeAhead_.isRunning(); }
    /// The item at a row of window pixels, across the list's whole width; None outside the list.
    [[nodiscard]] std::int32_t itemAt(Point position) const;
    /// Where a key leads to from an item: up, down, home, end and the page keys. None for others.
    [[nodiscard]] std::int32_t indexAfterKey(std::int32_t key, std::int32_t from) const;

    /// The item that the keys start from; in a list of one selection it is the selected one.
    [[nodiscard]] std::int32_t current() const { return current_; }
    /// Selects, and scrolls there; raises nothing. None takes the selection away; an index beyond
    /// the items changes nothing.
    virtual void select(std::int32_t index);
    /// Makes it the current item and scrolls nowhere.
    void highlight(std::int32_t index) { current_ = index; }
    [[nodiscard]] virtual bool isSelected(std::int32_t index) const { return index == current_; }

    /// Whether it takes presses and keys itself, which is so unless another widget works it.
    void setInteractive(bool set) { interactive_ = set; }

    Color selectionColor = control_color::Selection;
    Color hoverColor = control_color::Hover;

protected:
    enum class By : std::uint8_t { Pointer, Key };

    /// The user came to the item; modifiers are SDL_Keymod bits.
    virtual void choose(std::int32_t index, By by, std::uint16_t modifiers);
    /// Keys beyond those that move; true for one that was used.
    virtual bool handleOtherKey(std::int32_t /*key*/, std::uint16_t /*modifiers*/) { return false; }
    void setCurrent(std::int32_t index);
    void raiseSelection();
    [[nodiscard]] bool isUsable(std::int32_t index) const;

private:
    static void onPointer(WidgetEvent& event);
    static void onKey(WidgetEvent& event);
    static void onText(WidgetEvent& event);
    void fillRow(std::int32_t index, Color rowColor) const;
    void reveal();
    [[nodiscard]] std::int32_t usableFrom(std::int32_t index, std::int32_t step) const;
    [[nodiscard]] std::int32_t pageFrom(std::int32_t from, float direction) const;
    [[nodiscard]] WidgetPtr makeItem() const;
    /// The next one behind `after`, round the end, that begins with it; ASCII letters of any case.
    [[nodiscard]] std::int32_t indexStartingWith(const std::string& text, std::int32_t after) const;

    std::vector<std::string> keys_; ///< of the last items
    WidgetPtr itemTemplate_;
    StateTemplates labelLooks_; ///< of items that are only texts
    std::int32_t current_ = None;
    std::int32_t hover_ = None;
    TypeAhead typeAhead_;
    bool interactive_ = true;
    bool revealPending_ = false; ///< the current item is scrolled to when it has its place
};

} // namespace nui
