#pragma once

#include "nui/widgets/container.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace nui {

class PopupList;
class TextLabel;

/// Shows one of several texts, and opens a list over the window to choose another. Its child
/// "text", its own one unless the layout file gives one, shows the text. The pointer hits the
/// drop-down, not its children. The user's choice raises plain_event::Activate, and ends in a
/// touch::Release or keyboard::Down on the drop-down that listeners hear after it is made.
class DropDown : public Cloneable<DropDown, Container>, public FormItem {
public:
    /// No item.
    static constexpr std::int32_t None = -1;

    DropDown();
    /// A copy opens a list of its own.
    DropDown(const DropDown& other);
    DropDown& operator=(const DropDown& other);
    ~DropDown() override;

    void drawContent() override;
    void drawChildren(Point position) override;
    bool read(NuiReader& reader) override;
    void reloadText() override;
    void setEnabled(bool enabled) override;
    [[nodiscard]] const char* className() const override { return "DropDown"; }

    /// Language keys or texts; nothing is selected then.
    void setItems(std::vector<std::string> keys);
    [[nodiscard]] std::size_t count() const { return keys_.size(); }
    [[nodiscard]] std::int32_t selectedIndex() const { return selected_; }
    /// Empty while nothing is selected.
    [[nodiscard]] std::string selectedText();
    /// Raises nothing. None shows the hint; an index beyond the items changes nothing.
    void select(std::int32_t index);
    /// The first item with that text. False, and no change, if there is none.
    bool selectText(const std::string& text);

    void openList();
    void closeList();
    [[nodiscard]] bool isListOpen() const;

private:
    static void onPress(WidgetEvent& event);
    static void onKey(WidgetEvent& event);
    static void onText(WidgetEvent& event);
    static void onFocusLost(WidgetEvent& event);
    void adopt(const DropDown& other);
    PopupList& requireList();
    TextLabel& requireLabel();
    void showSelection();
    /// The user has selected it.
    void choose(std::int32_t index);
    void chooseAndRelease(std::int32_t index);
    void handleClosedKey(KeyboardEvent& event);

    std::vector<std::string> keys_;
    std::string hintKey_;
    WidgetPtr popupTemplate_;
    std::uint32_t maxRows_ = 10;
    std::int32_t selected_ = None;
    std::shared_ptr<PopupList> list_; ///< built when the list is first needed
};

} // namespace nui
