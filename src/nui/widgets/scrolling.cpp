#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/container.h"

#include <algorithm>
#include <array>

// How a container's contents are scrolled.

namespace nui {

namespace {

constexpr std::array PointerScrollTypes = {touch::Wheel, touch::Press, touch::Move, touch::Release};
constexpr std::array DragScrollTypes = {touch::Wheel, touch::DragStart, touch::DragMove,
                                        touch::DragEnd};

/// Pixels of a notch of the wheel, times the display scale.
constexpr float WheelStep = 20;

} // namespace

void Container::setScrollable(bool horizontally, bool vertically)
{
    const bool did = scrollableX || scrollableY;
    scrollableX = horizontally;
    scrollableY = vertically;
    if (did != (horizontally || vertically))
        listenForScrolling(!did);
}

void Container::setDragEvents(bool use)
{
    listenForScrolling(false);
    dragEvents_ = use;
    listenForScrolling(scrollableX || scrollableY);
}

void Container::listenForScrolling(bool listen)
{
    for (const EventType type : dragEvents_ ? DragScrollTypes : PointerScrollTypes) {
        if (listen)
            subscribe(*this, type, onScrollEvent, static_cast<Widget*>(this));
        else
            unsubscribe(*this, type, onScrollEvent);
    }
}

void Container::onScrollEvent(WidgetEvent& event)
{
    auto& touched = static_cast<TouchEvent&>(event);
    auto& self = static_cast<Container&>(*static_cast<Widget*>(event.user));
    switch (event.type) {
    case touch::Press:
        touched.capture();
        break;
    case touch::DragStart:
        self.startDragScroll(touched);
        break;
    case touch::Move:
    case touch::DragMove:
        // A press never becomes a drag here: contents are scrolled by wheel and scroll bar, and
        // a list under the pointer must stay where it is while its items are clicked.
        if (self.dragging_)
            self.dragScroll(touched);
        break;
    case touch::Release:
    case touch::DragEnd:
        self.dragging_ = false;
        break;
    case touch::Wheel:
        self.wheelScroll(touched);
        break;
    default:
        break;
    }
}

void Container::startDragScroll(TouchEvent& event)
{
    dragOriginX_ = static_cast<float>(event.x) - scrollX;
    dragOriginY_ = static_cast<float>(event.y) - scrollY;
    dragging_ = true;
    event.capture();
}

void Container::dragScroll(const TouchEvent& event)
{
    bool moved = false;
    if (scrollableX)
        moved = setScrollX(static_cast<float>(event.x) - dragOriginX_, true);
    if (scrollableY)
        moved = setScrollY(static_cast<float>(event.y) - dragOriginY_, true) || moved;
    if (moved) {
        ScrollEvent scrolled;
        dispatch(*this, scrolled, Phase::AtTarget);
    }
}

void Container::wheelScroll(const TouchEvent& event)
{
    const float step = engine().metrics.displayScale * WheelStep;
    ScrollEvent::Axis axis = ScrollEvent::Axis::None;
    if (scrollableY) {
        if (setScrollY(event.wheel * std::min(step, height) + scrollY, true))
            axis = ScrollEvent::Axis::Vertical;
    } else if (scrollableX) {
        if (setScrollX(event.wheel * std::min(step, width) + scrollX, true))
            axis = ScrollEvent::Axis::Horizontal;
    }
    if (axis == ScrollEvent::Axis::None)
        return;
    ScrollEvent scrolled(axis);
    dispatch(*this, scrolled, Phase::AtTarget);
}

bool Container::setScroll(float& scroll, float value, float least, float most, bool notify)
{
    const float clamped = std::max(std::min(value, most), least);
    if (clamped == scroll)
        return false;
    scroll = clamped;
    if (notify)
        send(*this, plain_event::ScrollChanged);
    return true;
}

bool Container::setScrollX(float value, bool notify)
{
    return setScroll(scrollX, value, minScrollX, maxScrollX, notify);
}

bool Container::setScrollY(float value, bool notify)
{
    return setScroll(scrollY, value, minScrollY, maxScrollY, notify);
}

void Container::makeVisible(const Widget& child)
{
    const bool movedY = setScrollY(scrollToShow(Axis::Y, child.localY, child.height), false);
    const bool movedX = setScrollX(scrollToShow(Axis::X, child.localX, child.width), false);
    if (movedX || movedY)
        send(*this, plain_event::ScrollChanged);
}

void Container::makeVisible(Axis axis, float start, float length)
{
    const float scroll = scrollToShow(axis, start, length);
    if (axis == Axis::X)
        setScrollX(scroll, true);
    else
        setScrollY(scroll, true);
}

/// The scroll at which the span can be seen: what sticks out at the start is aligned there, what
/// sticks out at the end there.
float Container::scrollToShow(Axis axis, float start, float length) const
{
    const float scroll = axis == Axis::X ? scrollX : scrollY;
    const float first = axis == Axis::X ? localX : localY;
    const float last = first + (axis == Axis::X ? width : height);
    if (start + scroll < first)
        return first - start;
    if (start + length + scroll > last)
        return last - start - length;
    return scroll;
}

} // namespace nui
