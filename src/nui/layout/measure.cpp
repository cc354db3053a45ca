#include "nui/widgets/container.h"

#include <algorithm>

namespace nui {

/// The content size: the sum of the children along the main axis, the largest one across.
void Container::measure()
{
    const Axis main = mainAxis();
    const Axis cross = across(main);
    if (mode(main) == Content)
        extent(main) = 0;
    if (mode(cross) == Content && !isGrid())
        extent(cross) = 0;
    const std::vector<WidgetPtr> children = children_;
    for (const WidgetPtr& child : children) {
        if (!child->isInFlow() || child->isOverlay())
            continue;
        if (mode(cross) == Content && !measureChild(*child, cross, false))
            return;
        if (mode(main) == Content && !measureChild(*child, main, true))
            return;
    }
    for (const Axis axis : {Axis::X, Axis::Y}) {
        if (mode(axis) == Content)
            extent(axis) += padding.both(axis, extent(axis));
    }
    applyLimits();
}

/// Takes one child into the content size of the axis. False, with the own size unknown, if the
/// child's is to be measured and isn't known yet.
bool Container::measureChild(Widget& child, Axis axis, bool sum)
{
    if (child.extent(axis) < 0) {
        if (child.mode(axis) == Content) {
            extent(axis) = -1;
            return false;
        }
        child.extent(axis) = 0;
    }
    const float taken = child.margin.both(axis, extent(axis)) + child.extent(axis);
    extent(axis) = sum ? extent(axis) + taken : std::max(extent(axis), taken);
    return true;
}

} // namespace nui
