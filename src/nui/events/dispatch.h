#pragma once

#include "nui/events/widget_events.h"

// How events reach the listeners of widgets. Everything here belongs to the loop's thread.

namespace nui {

/// See ListenerListOf. A widget that is its own user passes itself as Widget*, else its clones
/// could not take its place.
void subscribe(Widget& widget, EventType type, ListenerList::Function function, void* user);
/// In front of the others, to go before what the widget itself does with the event.
void subscribeFirst(Widget& widget, EventType type, ListenerList::Function function, void* user);
void unsubscribe(Widget& widget, EventType type, ListenerList::Function function);

/// Gives the event to the widget's own listeners. At the target, the widget becomes the event's
/// source unless there is one.
void dispatch(Widget& widget, WidgetEvent& event, Phase phase);

/// Dispatches at the target and then to each ancestor until a listener ends it.
void bubble(Widget& widget, WidgetEvent& event);

/// Sends a plain event of the type to the widget alone.
void send(Widget& widget, EventType type);

} // namespace nui
