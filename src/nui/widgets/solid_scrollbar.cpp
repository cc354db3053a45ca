#include "nui/widgets/solid_scrollbar.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/control_looks.h"

#include <algorithm>
#include <array>

namespace nui {

namespace {

constexpr std::array<const char*, 3> OrientationNames = {"Horizontal", "Vertical", nullptr};

/// Share of what can be seen that a notch of the wheel scrolls.
constexpr float WheelPages = 0.2F;

} // namespace

SolidScrollbar::SolidScrollbar()
{
    color = control_color::Line;
    backgroundColor = control_color::Channel;
    subscribe(*this, touch::Wheel, onWheel, static_cast<Widget*>(this));
}

SolidScrollbar::SolidScrollbar(const SolidScrollbar& other)
    : Cloneable<SolidScrollbar, Container>(other), containerName_(other.containerName_),
      axis_(other.axis_)
{
}

SolidScrollbar& SolidScrollbar::operator=(const SolidScrollbar& other)
{
    if (this != &other) {
        Container::operator=(other);
        containerName_ = other.containerName_;
        container_.reset();
        axis_ = other.axis_;
    }
    return *this;
}

bool SolidScrollbar::read(NuiReader& reader)
{
    Container::read(reader);
    if (reader.readString(containerName_, "container", true))
        container_.reset();
    std::uint32_t orientation = axis_ == Axis::X ? 0 : 1;
    reader.readEnum(orientation, "orientation", OrientationNames.data());
    setAxis(orientation == 0 ? Axis::X : Axis::Y);
    ensureChannel();
    return true;
}

void SolidScrollbar::setAxis(Axis axis)
{
    axis_ = axis;
    layoutKind = axis == Axis::X ? LayoutKind::Horizontal : LayoutKind::Vertical;
}

void SolidScrollbar::ensureChannel()
{
    for (const WidgetPtr& child : children()) {
        if (dynamic_cast<const SolidScrollbarChannel*>(child.get()) != nullptr)
            return;
    }
    auto channel = std::make_shared<SolidScrollbarChannel>();
    channel->color = color;
    add(std::move(channel));
}

void SolidScrollbar::setContainer(const std::shared_ptr<Container>& container)
{
    container_ = container;
    ensureChannel();
}

Container* SolidScrollbar::container()
{
    if (container_.expired() && !containerName_.empty()) {
        if (Widget* const found = findUp(containerName_))
            container_ = found->shared_from_this();
    }
    return dynamic_cast<Container*>(container_.lock().get());
}

float SolidScrollbar::visibleShare()
{
    Container* const scrolled = container();
    if (scrolled == nullptr || !(scrolled->extent(axis_) > 0))
        return 1;
    const float least = axis_ == Axis::X ? scrolled->minScrollX : scrolled->minScrollY;
    return scrolled->extent(axis_) / (scrolled->extent(axis_) - least);
}

float SolidScrollbar::scrolledShare()
{
    const Container* const scrolled = container();
    if (scrolled == nullptr)
        return 0;
    const float least = axis_ == Axis::X ? scrolled->minScrollX : scrolled->minScrollY;
    const float scroll = axis_ == Axis::X ? scrolled->scrollX : scrolled->scrollY;
    return least < 0 ? std::clamp(scroll / least, 0.0F, 1.0F) : 0;
}

void SolidScrollbar::scrollToPixels(float scroll)
{
    Container& scrolled = *container();
    const bool moved =
        axis_ == Axis::X ? scrolled.setScrollX(scroll, true) : scrolled.setScrollY(scroll, true);
    if (!moved)
        return;
    ScrollEvent event(axis_ == Axis::X ? ScrollEvent::Axis::Horizontal
                                       : ScrollEvent::Axis::Vertical);
    dispatch(scrolled, event, Phase::AtTarget);
}

void SolidScrollbar::scrollTo(float share)
{
    if (const Container* const scrolled = container())
        scrollToPixels(share * (axis_ == Axis::X ? scrolled->minScrollX : scrolled->minScrollY));
}

void SolidScrollbar::scrollByPages(float pages)
{
    if (Container* const scrolled = container())
        scrollToPixels((axis_ == Axis::X ? scrolled->scrollX : scrolled->scrollY) -
                       pages * scrolled->extent(axis_));
}

void SolidScrollbar::onWheel(WidgetEvent& event)
{
    auto& self = static_cast<SolidScrollbar&>(*static_cast<Widget*>(event.user));
    self.scrollByPages(-static_cast<const TouchEvent&>(event).wheel * WheelPages);
    event.stop(stop_level::EndsBubble);
}

void SolidScrollbar::drawChildren(Point position)
{
    if (visibleShare() < 1)
        Container::drawChildren(position);
}

} // namespace nui
