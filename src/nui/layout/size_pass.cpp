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
    float remaining = extent(main) - padding.both(main, extent(main));
    float weightTotal = 0;
    for (const WidgetPtr& child : children)
        sizeChild(*child, flags, remaining, weightTotal);

    layoutValid_ = true;
    for (const WidgetPtr& child : children) {
        if (child->visibility == visibility::Collapsed)
            continue;
        if (child->mode(main) == Weight && weightTotal != 0)
            child->extent(main) = remaining * child->value(main) / weightTotal;
        if (!child->layout(flags))
            layoutValid_ = false;
    }
    if (!Widget::layout(flags))
        layoutValid_ = false;
    return layoutValid_;
}

/// The first pass for one child. `remaining` and `weightTotal` gather what the second one needs.
void Container::sizeChild(Widget& child, std::uint32_t flags, float& remaining, float& weightTotal)
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
            const float provisional = provisionalWeightSize(child);
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
        weightTotal += child.value(main);
    else
        remaining -= child.extent(main);
    remaining -= child.margin.both(main, extent(main));
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

/// What a weighted child would get if all others had the sizes that their keys say; -1 if that
/// cannot be told. Only an estimate for what the child measures meanwhile, so it knows no padding.
float Container::provisionalWeightSize(const Widget& child)
{
    const Axis main = mainAxis();
    const float room = extent(main);
    float rest = room;
    float weights = 0;
    for (const WidgetPtr& sibling : children_) {
        if (sibling->visibility == visibility::Collapsed)
            continue;
        if (sibling->mode(main) == Percent) {
            rest -= room * sibling->value(main);
            continue;
        }
        rest -= sibling->margin.both(main, room);
        if (sibling->mode(main) == Px)
            rest -= sibling->value(main);
        else if (sibling->mode(main) == Weight)
            weights += sibling->value(main);
        else
            return -1;
    }
    return child.value(main) * rest / weights;
}

} // namespace nui
