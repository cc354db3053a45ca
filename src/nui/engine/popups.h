#pragma once

#include "nui/events/widget_events.h"

#include <vector>

namespace nui {

class Engine;
class Screen;

/// The popup that may be open on a screen, with those that were opened from within it on top; a
/// press beside them closes them. Owned by the engine; for the loop's thread.
class Popups {
public:
    explicit Popups(Engine& engine) : engine_(engine) {}

    /// Opens on the current screen, and closes those that are open.
    void show(const WidgetPtr& popup);
    /// The same, but the open popup that the opener is in stays, with those below it. The opener
    /// may be null.
    void showOver(const WidgetPtr& popup, const Widget* opener);
    /// All of them.
    void close();
    /// That one, if it is open, and those on top of it.
    void close(const Widget& popup);
    /// Closes the popups if they are open on that screen.
    void closeOn(const Screen& screen);
    /// The one on top, or null.
    [[nodiscard]] WidgetPtr open() const;
    [[nodiscard]] bool isOpen(const Widget& popup) const;
    /// A press reached the root of a screen: closes the popups on top of the one that it was on,
    /// or all of them.
    void pressedOnScreen();

private:
    static void onPress(WidgetEvent& event);
    void closeDownTo(std::size_t count);
    /// How many lie below the popup that the widget is in, itself included; 0 if it is in none.
    [[nodiscard]] std::size_t levelOf(const Widget* widget) const;

    Engine& engine_;
    std::vector<WidgetPtr> open_;  ///< from the lowest to the one on top
    std::size_t pressedLevel_ = 0; ///< of the popup that the press was on
};

} // namespace nui
