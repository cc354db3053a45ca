#include "nui/layout/placing_pass.h"

#include <algorithm>
#include <cmath>

namespace nui {

namespace {

bool isOverlapping(const Widget& child)
{
    return child.visibility == visibility::Overlapping ||
           child.visibility == visibility::ClippedOverlapping;
}

} // namespace

PlacingPass::PlacingPass(Container& container)
    : container_(container), main_(container.mainAxis()), cross_(across(main_)),
      mainSize_(container.extent(main_)), crossSize_(container.extent(cross_)),
      padStart_(container.padding.start(main_, mainSize_)),
      padEnd_(container.padding.end(main_, mainSize_)),
      lineOffset_(container.padding.start(cross_, crossSize_))
{
    const Point first = {container.localX + container.padding.start(Axis::X, container.width),
                         container.localY + container.padding.start(Axis::Y, container.height)};
    cursors_.fill(first);
    // What is centred or ends flush is first laid out from 0 and moved when its length is known.
    for (const std::size_t index : {CenterCursor, EndCursor}) {
        along(cursors_[index]) = 0;
        along(cursors_[index + OverlappingCursors]) = 0;
    }
    if (container.isGrid() && container.mode(main_) == Content)
        itemsPerLine_ = container.value(main_);
}

void PlacingPass::run()
{
    // A grid's child that fits no line, not even an empty one, ends the placing: it and the rest
    // stay where they are, and so do the scroll limits.
    for (const WidgetPtr& child : container_.children()) {
        if (!child->isOverlay() && !placeChild(*child))
            return clampScrolls();
    }
    if (!moveByGravity())
        setScrollLimits();
    clampScrolls();
}

bool PlacingPass::placeChild(Widget& child)
{
    const auto gravity = static_cast<std::size_t>(child.gravity);
    const std::size_t index = isOverlapping(child) ? gravity + OverlappingCursors : gravity;
    if (index == StartCursor)
        noStart_ = false;
    if (child.isInFlow()) {
        if (!placeInFlow(child, cursors_[index]))
            return false;
    } else if (isOverlapping(child)) {
        placeOverlapping(child);
    }
    placeAcross(child);
    roundDown(child);
    return true;
}

void PlacingPass::placeOverlapping(Widget& child) const
{
    const float start = child.margin.start(main_, mainSize_);
    const float end = child.margin.end(main_, mainSize_);
    const float size = child.extent(main_);
    const float room = mainSize_ - padStart_ - padEnd_;
    float offset = start + padStart_;
    if (child.gravity == Placement::Center)
        offset = (room - start - size - end) * 0.5F + padStart_;
    else if (child.gravity == Placement::End)
        offset = room - size - end; // without the start padding, other than all else
    child.local(main_) = container_.local(main_) + offset;
}

bool PlacingPass::placeInFlow(Widget& child, Point& cursor)
{
    for (;;) {
        float& pen = along(cursor);
        pen += child.margin.start(main_, mainSize_);
        child.localX = cursor.x;
        child.localY = cursor.y;
        pen += child.extent(main_) + child.margin.end(main_, mainSize_);
        if (!container_.isGrid())
            return true;
        if (!lineIsFull(pen)) {
            lineExtent_ = std::max(lineExtent_, margins(child, cross_) + child.extent(cross_));
            return true;
        }
        if (lineExtent_ == 0)
            return false;
        lineOffset_ += lineExtent_;
        lineExtent_ = 0;
        itemsInLine_ = 0;
        pen = container_.local(main_) + padStart_;
    }
}

bool PlacingPass::lineIsFull(float pen)
{
    if (itemsPerLine_ != 0) {
        ++itemsInLine_;
        return itemsPerLine_ < itemsInLine_;
    }
    return container_.local(main_) + mainSize_ < pen;
}

void PlacingPass::placeAcross(Widget& child) const
{
    const float start = child.margin.start(cross_, crossSize_);
    const float end = child.margin.end(cross_, crossSize_);
    const float padEnd = container_.padding.end(cross_, crossSize_);
    const float size = child.extent(cross_);
    float offset = start + lineOffset_;
    if (child.alignment == Placement::Center)
        offset =
            start + (crossSize_ - start - end - lineOffset_ - padEnd - size) * 0.5F + lineOffset_;
    else if (child.alignment == Placement::End)
        offset = start + crossSize_ - end - padEnd - size; // whatever the line
    child.local(cross_) = container_.local(cross_) + offset;
}

void PlacingPass::roundDown(Widget& child)
{
    for (const Axis axis : {Axis::X, Axis::Y}) {
        if (child.mode(axis) == Percent || child.mode(axis) == Weight)
            continue;
        child.local(axis) = std::floor(child.local(axis));
        child.extent(axis) = std::floor(child.extent(axis));
    }
}

/// Whether the cursor's children are the only ones and need more room than there is.
bool PlacingPass::overflowsAlone(std::size_t cursor) const
{
    const std::size_t other = cursor == EndCursor ? CenterCursor : EndCursor;
    const float length = mainOf(cursors_[cursor]);
    return length > 0 && mainOf(cursors_[other]) <= 0 && length > mainSize_ - padStart_ - padEnd_;
}

bool PlacingPass::moveByGravity()
{
    Point& center = cursors_[CenterCursor];
    Point& end = cursors_[EndCursor];
    if (mainOf(center) <= 0 && mainOf(end) <= 0)
        return false;

    bool limitsAreSet = false;
    const bool canScrollAlone = main_ == Axis::Y && container_.scrollableY && noStart_ &&
                                (overflowsAlone(CenterCursor) || overflowsAlone(EndCursor));
    if (canScrollAlone) {
        // Centred or flush at the end, the beginning could never be scrolled into view.
        Point& base = mainOf(end) > 0 ? end : center;
        const float length = base.y;
        base.y = cursors_[StartCursor].y;
        container_.minScrollX = container_.width - base.x + container_.localX;
        container_.minScrollY = container_.height - length + container_.localY - base.y;
        limitsAreSet = true;
    } else {
        const float own = container_.local(main_);
        along(end) = own + mainSize_ - padEnd_ - mainOf(end);
        along(center) = (mainSize_ - padStart_ - padEnd_ - mainOf(center)) * 0.5F + own + padStart_;
    }
    for (const WidgetPtr& child : container_.children()) {
        if (!child->isInFlow() || child->isOverlay() || child->gravity == Placement::Start)
            continue;
        child->local(main_) += mainOf(child->gravity == Placement::Center ? center : end);
    }
    return limitsAreSet;
}

void PlacingPass::setScrollLimits()
{
    const Point& start = cursors_[StartCursor];
    container_.minScrollX = container_.width - start.x + container_.localX;
    container_.minScrollY = container_.height - start.y + container_.localY;
    if (container_.isGrid()) {
        const float lines = lineExtent_ + lineOffset_;
        if (container_.mode(cross_) == Content) {
            // The bottom padding for both kinds of grid.
            container_.extent(cross_) = lines + container_.padding.end(Axis::Y, container_.height);
        }
        if (container_.layoutKind == LayoutKind::HorizontalGrid)
            container_.minScrollY = container_.height - lines;
        else
            container_.minScrollX = container_.width - lines;
    }
    container_.minScrollX -= container_.padding.end(Axis::X, container_.width);
    container_.minScrollY -= container_.padding.end(Axis::Y, container_.height);
}

void PlacingPass::clampScrolls() const
{
    Container& own = container_;
    own.minScrollX = std::min(own.minScrollX, 0.0F);
    own.minScrollY = std::min(own.minScrollY, 0.0F);
    own.scrollX = std::max(std::min(own.scrollX, own.maxScrollX), own.minScrollX);
    own.scrollY = std::max(std::min(own.scrollY, own.maxScrollY), own.minScrollY);
}

} // namespace nui
