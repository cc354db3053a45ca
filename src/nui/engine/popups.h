#pragma once

#include "nui/events/widget_events.h"

namespace nui {

class Engine;
class Screen;

/// The one popup that may be open on a screen; a press anywhere else closes it. Owned by the
/// engine; for the loop's thread.
class Popups {
public:
    explicit Popups(Engine& engine) : engine_(engine) {}

    /// Opens on the current screen, and closes another one that is open.
    void show(const WidgetPtr& popup);
    void close();
    /// Closes the popup if it is open on that screen.
    void closeOn(const Screen& screen);
    [[nodiscard]] const WidgetPtr& open() const { return popup_; }
    /// A press reached the root of a screen: closes the popup unless the press was on it.
    void pressedOnScreen();

private:
    static void onPress(WidgetEvent& event);

    Engine& engine_;
    WidgetPtr popup_;
    bool pressed_ = false;
};

} // namespace nui
