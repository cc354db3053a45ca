#include "nui/draw/drawing.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/control_looks.h"
#include "nui/widgets/solid_scrollbar.h"

#include <algorithm>
#include <cmath>

namespace nui {

namespace {

constexpr float LeastThumb = 16;

} // namespace

SolidScrollbarChannel::SolidScrollbarChannel()
{
    color = control_color::Line;
    for (const EventType type : {touch::Press, touch::Move, touch::Release})
        subscribe(*this, type, onPointer, static_cast<Widget*>(this));
}

SolidScrollbar* SolidScrollbarChannel::bar() const
{
    return dynamic_cast<SolidScrollbar*>(parent);
}

SolidScrollbarChannel::Thumb SolidScrollbarChannel::thumbOf(SolidScrollbar& bar) const
{
    const float length = bar.axis() == Axis::X ? width : height;
    Thumb thumb;
    thumb.length = std::round(
        std::min(length, std::max(LeastThumb, length * std::min(1.0F, bar.visibleShare()))));
    thumb.room = length - thumb.length;
    thumb.start = std::round(thumb.room * bar.scrolledShare());
    return thumb;
}

void SolidScrollbarChannel::drawContent()
{
    SolidScrollbar* const around = bar();
    if (around == nullptr)
        return;
    fadeIfDisabled(*this);
    const Thumb thumb = thumbOf(*around);
    setColor(grab_ < 0 ? color : control_color::Accent, drawAlpha);
    if (around->axis() == Axis::X)
        fillRect(x + thumb.start, y + 2, thumb.length, height - 4);
    else
        fillRect(x + 2, y + thumb.start, width - 4, thumb.length);
}

void SolidScrollbarChannel::press(TouchEvent& event, SolidScrollbar& bar)
{
    if ((event.buttons & pointer_button::Left) == 0 || !(bar.visibleShare() < 1))
        return;
    const Thumb thumb = thumbOf(bar);
    const float along =
        bar.axis() == Axis::X ? static_cast<float>(event.x) - x : static_cast<float>(event.y) - y;
    event.capture();
    if (along < thumb.start)
        bar.scrollByPages(-1);
    else if (along >= thumb.start + thumb.length)
        bar.scrollByPages(1);
    else
        grab_ = along - thumb.start;
}

void SolidScrollbarChannel::onPointer(WidgetEvent& event)
{
    auto& self = static_cast<SolidScrollbarChannel&>(*static_cast<Widget*>(event.user));
    auto& touched = static_cast<TouchEvent&>(event);
    SolidScrollbar* const around = self.bar();
    if (around == nullptr)
        return;
    if (event.type == touch::Press) {
        self.press(touched, *around);
    } else if (event.type == touch::Release) {
        self.grab_ = -1;
    } else if (self.grab_ >= 0) {
        const float along = around->axis() == Axis::X ? static_cast<float>(touched.x) - self.x
                                                      : static_cast<float>(touched.y) - self.y;
        const float room = self.thumbOf(*around).room;
        if (room > 0)
            around->scrollTo((along - self.grab_) / room);
    }
}

} // namespace nui
