#include "nui/events/dispatch.h"

#include "nui/widgets/widget.h"

#include <utility>

namespace nui {

void subscribe(Widget& widget, EventType type, ListenerList::Function function, void* user)
{
    widget.listenerList().subscribe(type, function, user);
}

void subscribeFirst(Widget& widget, EventType type, ListenerList::Function function, void* user)
{
    widget.listenerList().subscribeFirst(type, function, user);
}

void unsubscribe(Widget& widget, EventType type, ListenerList::Function function)
{
    if (widget.listeners())
        widget.listeners()->unsubscribe(type, function);
}

void dispatch(Widget& widget, WidgetEvent& event, Phase phase)
{
    // A share of its own: a listener may let the widget go.
    const std::shared_ptr<ListenerList> listeners = widget.listeners();
    if (!listeners)
        return;
    event.target = &widget;
    if (event.source == nullptr && phase == Phase::AtTarget)
        event.source = &widget;
    event.phase = phase;
    listeners->call(event);
}

void bubble(Widget& widget, WidgetEvent& event)
{
    // Listeners may let go of the widgets on the way.
    WidgetPtr held = widget.weak_from_this().lock();
    dispatch(widget, event, Phase::AtTarget);
    for (Widget* ancestor = widget.parent;
         ancestor != nullptr && event.stopLevel < stop_level::EndsBubble;
         ancestor = ancestor->parent) {
        const WidgetPtr child = std::exchange(held, ancestor->weak_from_this().lock());
        dispatch(*ancestor, event, Phase::Bubbling);
    }
}

void send(Widget& widget, EventType type)
{
    WidgetEvent event(type);
    dispatch(widget, event, Phase::AtTarget);
}

} // namespace nui
