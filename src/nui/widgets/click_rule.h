#pragma once

#include "nui/events/widget_events.h"

#include <cstdint>

// What makes a widget a button: a press and a release of the left button on it, or Return or space
// while it has the keyboard, raise plain_event::Activate on it. For the loop's thread.

namespace nui {

/// Subscribes the widget to its own presses and releases. Arming it again changes nothing but the
/// place among its listeners.
void armClickRule(Widget& widget);
/// Subscribes the widget to the keys that activate it while it has the keyboard.
void armKeyboardRule(Widget& widget);

/// Raises plain_event::Activate on the widget, from where it bubbles. Answers the level at which
/// its listeners have stopped it.
std::uint32_t raiseActivate(Widget& widget);

// The parts of the click rule, for a button that does something of its own before the others hear
// of the click: it subscribes to touch::Press and touch::Release itself.

/// A listener of touch::Press: the left button captures the pointer.
void captureLeftPress(WidgetEvent& press);
/// Whether the release of the left button ends a click on the event's target.
[[nodiscard]] bool endsClick(const WidgetEvent& release);
/// Raises the activation on the release's target. A click that was handled stops the release too.
void raiseClick(WidgetEvent& release);

} // namespace nui
