#pragma once

#include "nui/widgets/overlay.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace nui {

class ListBox;
class SolidScrollbar;

/// A list over the window, of which one item is chosen, by pointer or key. Who opens it holds it
/// and keeps the keyboard, whose keys it hands on. It stays within the window, and closes at a
/// press beside it. A clone is only a picture of it.
class PopupList : public Overlay {
public:
    using Choice = std::function<void(std::int32_t index)>;

    /// `look` is a ListBox to take looks and item template from, or any other widget, of which it
    /// takes the colours; may be null.
    explicit PopupList(const Widget* look = nullptr);

    void place() override;
    bool layout(std::uint32_t flags) override;
    [[nodiscard]] const char* className() const override { return "PopupList"; }

    /// Language keys or texts. An item is greyed by disabling the child of the list.
    void setItems(std::vector<std::string> keys);
    /// The highlighted item is its current one.
    [[nodiscard]] ListBox& list() const { return *list_; }
    /// Called after the list has closed, with the item that was chosen.
    void setChoice(Choice choice) { choice_ = std::move(choice); }
    /// How many items are seen at once, if the window has room for them.
    void setMaxRows(std::uint32_t rows) { maxRows_ = rows > 0 ? rows : 1; }

    /// On the current screen: below the widget and as wide at the least, or above it where there
    /// is more room.
    void openBelow(const WidgetPtr& widget);
    /// With its left upper corner there, in window pixels. Where the opener is in a popup, that
    /// one stays below; null is in none.
    void openAt(Point position, const Widget* opener);
    void close();
    [[nodiscard]] bool isOpen() const;

    /// A key that the owner was given. True, and the event used up, for those of the open list.
    bool handleKey(WidgetEvent& key);

private:
    struct Room {
        float top;
        float height;
    };

    static void onPointer(WidgetEvent& event);
    void open(const Widget* opener);
    void choose(std::int32_t index);
    [[nodiscard]] bool isChoosingKey(std::int32_t key) const;
    [[nodiscard]] float wantedWidth() const;
    [[nodiscard]] float widestText() const;
    [[nodiscard]] float roomBesideText() const;
    [[nodiscard]] float rowsHeight() const;
    [[nodiscard]] Room roomFor(float wanted) const;

    std::shared_ptr<ListBox> list_;
    std::shared_ptr<SolidScrollbar> scrollbar_;
    Choice choice_;
    std::weak_ptr<Widget> below_;
    bool isBelow_ = false; ///< a widget, and not at `position_`
    Point position_;
    std::uint32_t maxRows_ = 10;
    bool armed_ = false; ///< a release chooses; not that of the press that has opened it
};

} // namespace nui
