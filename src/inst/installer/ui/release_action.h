#pragma once

#include "nui/events/widget_events.h"

#include <functional>

namespace nrd::installer::ui {

/// What a button of the first page does as soon as a pointer's button is released on it, whichever
/// it is and wherever it was pressed. A click would have to begin on it too. What the keyboard
/// activates counts as released. Must outlive the button's last event.
class release_action {
public:
    release_action() = default;
    release_action(const release_action&) = delete;
    release_action& operator=(const release_action&) = delete;
    ~release_action() = default;

    /// Once.
    void attach(nui::Widget& button, std::function<void()> action);

private:
    static void on_release_begins(nui::WidgetEvent& event);
    static void on_release(nui::WidgetEvent& event);
    static void on_activate(nui::WidgetEvent& event);

    std::function<void()> action_;
    bool releasing_ = false; ///< the activation of a click comes in the middle of its release
};

} // namespace nrd::installer::ui
