#include "nui/widgets/container.h"

// How a container works out the sizes of its children, and its own.

namespace nui {

void Container::resolveOwn(std::uint32_t flags)
{
    const bool widthOnly = (flags & layout_flag::ResolveOwnSize) == layout_flag::ResolveOwnWidth;
    if (!widthOnly || widthMode == Content)
        resolveExtent(Axis::X, -1);
    // With the width alone asked for, the height is tested by its number, not by its unit: 6.0
    // is the unit's code, and layouts have come to rest on it.
    if (!widthOnly || heightValue == static_cast<float>(Content))
        resolveExtent(Axis::Y, -1);
}

bool Container::layout(std::uint32_t flags)
{
    if ((flags & layout_flag::ResolveOwnSize) != 0) {
        resolveOwn(flags);
        flags &= ~layout_flag::ResolveOwnSize;
    }
    const bool forced = (flags & layout_flag::Force) != 0;
    if (!forced && layoutValid_)
        return true;
    if (forced)
        layoutValid_ = false;
    const LayoutPass pass;
    return (flags & layout_flag::SizeOnly) != 0 ? learnSize(flags) : sizeChildren(flags);
}

/// The own size alone. Two passes at each level would double the work with each, so what the
/// first one finds out is kept for the whole pass from the root.
bool Container::learnSize(std::uint32_t flags)
{
    if (isToBeMeasured()) {
        const KnownSizes::Given given(width, height, flags);
        if (!knownSizes_.recall(given, width, height)) {
            sizeChildren(flags);
            knownSizes_.keep(given, width, height);
        }
    }
    return width >= 0 && height >= 0;
}

bool Container::sizeChildren(std::uint32_t flags)
{
    // Listeners that change the tree meanwhile must not disturb the pass.
    const std::vector<WidgetPtr> children = children_;
    const Axis main = mainAxis();
    Room room;
    room.remaining = extent(main) - padding.both(main, extent(main));
    for (const WidgetPtr& child : children)
        sizeChild(*child, flags, room);

    layoutValid_ = true;
    for (const WidgetPtr& child : children) {
        if (child->visibility == visibility::Collapsed)
            continue;
        if (child->mode(main) == Weight && room.weightTotal != 0)
            child->extent(main) = room.remaining * child->value(main) / room.weightTotal;
        if (!child->layout(flags))
            layoutValid_ = false;
    }
    if (!Widget::layout(flags))
        layoutValid_ = false;
    return layoutValid_;
}

/// The first pass for one child.
void Container::sizeChild(Widget& child, std::uint32_t flags, Room& room)
{
    const Axis main = mainAxis();
    const SizeMode mainMode = child.mode(main);
    if ((flags & layout_flag::Force) != 0) {
        child.resolveExtent(Axis::X, -1);
        child.resolveExtent(Axis::Y, -1);
    }
    sizeAcross(child);
    for (const Axis axis : {Axis::X, Axis::Y}) {
        const float limit = axis == Axis::X ? child.maxWidth : child.maxHeight;
        const bool relative = child.mode(axis) == Percent || child.mode(axis) == Weight;
        if (relative && limit > 0 && child.extent(axis) > limit)
            child.extent(axis) = limit;
    }
    if (child.visibility != visibility::Collapsed && extent(main) >= 0) {
        if (mainMode == Percent) {
            child.extent(main) = extent(main) * child.value(main);
        } else if (mainMode == Weight) {
            if (!room.isEstimated)
                estimate(room);
            const float provisional =
                child.value(main) * room.estimatedRest / room.estimatedWeights;
            if (provisional > 0)
                child.extent(main) = provisional;
        }
    }
    std::uint32_t childFlags = (flags & layout_flag::CarriedMask) | layout_flag::Force;
    // All of it is laid out anew in the second pass.
    if ((flags & layout_flag::Force) != 0 && child.visibility != visibility::Collapsed)
        childFlags |= layout_flag::SizeOnly;
    child.layout(childFlags);

    // A percent child leaves its room to the weighted ones, so that the two may overlap.
    if (mainMode == Percent)
        return;
    if (mainMode != Weight)
        child.applyLimits();
    if (!child.isInFlow() || child.isOverlay())
        return;
    if (mainMode == Weight)
        room.weightTotal += child.value(main);
    else
        room.remaining -= child.extent(main);
    room.remaining -= child.margin.both(main, extent(main));
}

void Container::sizeAcross(Widget& child)
{
    const Axis cross = across(mainAxis());
    const float own = extent(cross);
    if (child.mode(cross) == Percent)
        child.extent(cross) = own * child.value(cross);
    else if (child.mode(cross) == Weight)
        child.extent(cross) = own - child.margin.both(cross, own) - padding.both(cross, own);
}

/// What the weighted children would share if all others had the sizes that their keys say; nothing
/// if that cannot be told. Only an estimate for what they measure meanwhile, so it knows no
/// padding.
void Container::estimate(Room& room)
{
    room.isEstimated = true;
    const Axis main = mainAxis();
    const float own = extent(main);
    float rest = own;
    float weights = 0;
    for (const WidgetPtr& child : children_) {
        if (child->visibility == visibility::Collapsed)
            continue;
        const SizeMode mode = child->mode(main);
        if (mode == Percent) {
            rest -= own * child->value(main);
            continue;
        }
        if (mode != Px && mode != Weight)
            return;
        rest -= child->margin.both(main, own);
        if (mode == Px)
            rest -= child->value(main);
        else
            weights += child->value(main);
    }
    room.estimatedRest = rest;
    room.estimatedWeights = weights;
}

} // namespace nui
