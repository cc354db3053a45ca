#include "nui/widgets/pages_container.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/screen.h"

#include <algorithm>

namespace nui {

PagesContainer::PagesContainer(const PagesContainer& other)
    : Cloneable<PagesContainer, Container>(other)
{
    adoptCurrent(other);
}

PagesContainer& PagesContainer::operator=(const PagesContainer& other)
{
    if (this != &other) {
        Container::operator=(other);
        adoptCurrent(other);
    }
    return *this;
}

/// The children have been cloned in order.
void PagesContainer::adoptCurrent(const PagesContainer& other)
{
    started_ = other.started_;
    current_.reset();
    const auto& pages = other.children();
    const auto place = std::find(pages.begin(), pages.end(), other.current_);
    if (place != pages.end())
        current_ = children()[static_cast<std::size_t>(place - pages.begin())];
}

bool PagesContainer::show(const std::string& page)
{
    const WidgetPtr found = findChild(page);
    return found && show(found);
}

bool PagesContainer::show(const WidgetPtr& page)
{
    if (!started_) {
        for (const WidgetPtr& child : children())
            child->visibility = visibility::Collapsed;
        started_ = true;
    }
    if (page == current_ || !find(page.get()))
        return false;
    if (current_) {
        current_->visibility = visibility::Collapsed;
        // Keys must not go on into a page that cannot be seen.
        engine().keyboard.forgetTree(*current_);
    }
    current_ = page;
    page->visibility = visibility::Visible;
    // A listener may let this container go, with its screen.
    const WidgetPtr held = weak_from_this().lock();
    PagesContainerEvent opened;
    dispatch(*page, opened, Phase::AtTarget);
    if (Screen* const shown = screen())
        shown->markDirty();
    return true;
}

void PagesContainer::measure()
{
    if (!current_) {
        Container::measure();
        return;
    }
    for (const Axis axis : {Axis::X, Axis::Y}) {
        if (mode(axis) != Content)
            continue;
        const float page = current_->extent(axis);
        extent(axis) = page < 0 ? -1 : page + roomAround(axis, page);
    }
    applyLimits();
}

/// What padding and the page's margins take of that length.
float PagesContainer::roomAround(Axis axis, float length) const
{
    return padding.both(axis, length) + current_->margin.both(axis, length);
}

bool PagesContainer::layout(std::uint32_t flags)
{
    if ((flags & layout_flag::ResolveOwnSize) != 0) {
        resolveOwn(flags);
        flags &= ~layout_flag::ResolveOwnSize;
    }
    const bool forced = (flags & layout_flag::Force) != 0;
    if (!forced && isLayoutValid())
        return true;
    setLayoutValid(true);
    if (current_ && !find(current_.get()))
        current_.reset(); // it was taken out
    if (current_) {
        for (const Axis axis : {Axis::X, Axis::Y}) {
            if (extent(axis) < 0) // follows from the page's own size
                current_->resolveExtent(axis, -1);
            else
                current_->extent(axis) = extent(axis) - roomAround(axis, extent(axis));
        }
        if (!current_->layout(flags | layout_flag::Force))
            setLayoutValid(false);
    }
    if (!measureUnknown())
        setLayoutValid(false);
    return isLayoutValid();
}

} // namespace nui
