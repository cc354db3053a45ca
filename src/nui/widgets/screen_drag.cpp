#include "nui/events/dispatch.h"
#include "nui/widgets/screen.h"

// A widget that hangs on the pointer.

namespace nui {

void Screen::beginDrag(const WidgetPtr& widget, Widget* owner, std::int32_t grabX,
                       std::int32_t grabY, bool useWidgetItself)
{
    if (!widget)
        return;
    if (draggedWidget_ && find(draggedWidget_.get())) {
        previousDraggedWidget_ = draggedWidget_;
        previousDraggedWidget_->visibility = visibility::Collapsed;
    }
    draggedWidget_ = useWidgetItself ? widget : widget->clone();
    if (useWidgetItself) {
        if (auto* const container = dynamic_cast<Container*>(owner))
            container->remove(widget.get());
    }
    draggedWidget_->setEnabled(false);
    draggedWidget_->margin = {};
    draggedWidget_->visibility = visibility::Overlapping;
    grabX_ = grabX;
    grabY_ = grabY;
    for (const EventType type : {touch::Move, touch::Release, touch::Leave})
        subscribe(*this, type, onDragEvent, static_cast<Widget*>(this));
    add(draggedWidget_);
    dragging_ = true;
}

void Screen::onDragEvent(WidgetEvent& event)
{
    auto& self = static_cast<Screen&>(*static_cast<Widget*>(event.user));
    const auto& touched = static_cast<const TouchEvent&>(event);
    if (event.type != touch::Move) {
        self.endDrag();
        event.stop(stop_level::Swallow);
        return;
    }
    if (!self.draggedWidget_)
        return;
    Widget& dragged = *self.draggedWidget_;
    dragged.localX = static_cast<float>(touched.x - self.grabX_);
    dragged.localY = static_cast<float>(touched.y - self.grabY_);
    dragged.measure();
    dragged.place();
}

void Screen::endDrag()
{
    if (draggedWidget_)
        remove(draggedWidget_.get());
    draggedWidget_.reset();
    if (previousDraggedWidget_) {
        remove(previousDraggedWidget_.get());
        previousDraggedWidget_.reset();
    }
    for (const EventType type : {touch::Move, touch::Release, touch::Leave})
        unsubscribe(*this, type, onDragEvent);
    dragging_ = false;
}

} // namespace nui
