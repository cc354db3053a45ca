#include "nui/widgets/slider.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/value_range.h"

#include <SDL_keycode.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace nui {

namespace {

constexpr std::array<const char*, 3> OrientationNames = {"Horizontal", "Vertical", nullptr};

constexpr float ThumbLength = 10; ///< along the channel; in points, as is the next
constexpr float ChannelSize = 4;
/// Parts of the range that a step and a page are, where the step doesn't say.
constexpr float StepsInRange = 100;
constexpr float PagesInRange = 10;

} // namespace

Slider::Slider()
{
    color = control_color::Accent;
    for (const EventType type : {touch::Press, touch::Move, touch::Release, touch::Wheel})
        subscribe(*this, type, onPointer, static_cast<Widget*>(this));
    subscribe(*this, keyboard::Down, onKey, static_cast<Widget*>(this));
}

bool Slider::read(NuiReader& reader)
{
    Widget::read(reader);
    float minimum = minimum_;
    float maximum = maximum_;
    readRange(reader, minimum, maximum);
    setRange(minimum, maximum);
    reader.readFloat(step_, "step");
    float value = value_;
    if (reader.readFloat(value, "value"))
        setValue(value);
    std::uint32_t orientation = axis_ == Axis::X ? 0 : 1;
    reader.readEnum(orientation, "orientation", OrientationNames.data());
    axis_ = orientation == 0 ? Axis::X : Axis::Y;
    reader.readColor(channelColor, "channelColor", "channelAlpha");
    return true;
}

void Slider::setValue(float value)
{
    if (!std::isnan(value))
        value_ = std::clamp(value, minimum_, maximum_);
}

void Slider::setRange(float minimum, float maximum)
{
    minimum_ = minimum;
    maximum_ = std::max(minimum, maximum);
    setValue(value_);
}

void Slider::slideTo(float value)
{
    const float before = value_;
    if (step_ > 0 && value < maximum_)
        value = minimum_ + std::round((value - minimum_) / step_) * step_;
    setValue(value);
    if (value_ == before)
        return;
    WidgetEvent moved(plain_event::Activate);
    bubble(*this, moved);
}

float Slider::smallStep() const
{
    return step_ > 0 ? step_ : (maximum_ - minimum_) / StepsInRange;
}

float Slider::pageStep() const
{
    return std::max(smallStep(), (maximum_ - minimum_) / PagesInRange);
}

float Slider::share() const
{
    return maximum_ > minimum_ ? (value_ - minimum_) / (maximum_ - minimum_) : 0;
}

float Slider::thumbSize() const
{
    return std::round(ThumbLength * engine().metrics.displayScale);
}

float Slider::room() const
{
    return (axis_ == Axis::X ? width : height) - thumbSize();
}

float Slider::thumbStart() const
{
    return std::round(std::max(room(), 0.0F) * share());
}

float Slider::alongOf(const TouchEvent& event) const
{
    return axis_ == Axis::X ? static_cast<float>(event.x) - x
                            : y + height - static_cast<float>(event.y);
}

void Slider::press(TouchEvent& event)
{
    if ((event.buttons & pointer_button::Left) == 0)
        return;
    engine().setFocus(shared_from_this());
    event.capture();
    const float along = alongOf(event) - thumbStart();
    const bool isOnThumb = along >= 0 && along < thumbSize();
    // Beside the thumb, its middle comes to the pointer and is held there.
    grab_ = isOnThumb ? along : thumbSize() / 2;
    if (!isOnThumb && room() > 0)
        slideTo(minimum_ + (maximum_ - minimum_) * (alongOf(event) - grab_) / room());
}

void Slider::onPointer(WidgetEvent& event)
{
    auto& self = static_cast<Slider&>(*static_cast<Widget*>(event.user));
    auto& touched = static_cast<TouchEvent&>(event);
    if (event.type == touch::Press) {
        self.press(touched);
    } else if (event.type == touch::Release) {
        self.grab_ = -1;
    } else if (event.type == touch::Move) {
        if (self.grab_ >= 0 && self.room() > 0)
            self.slideTo(self.minimum_ + (self.maximum_ - self.minimum_) *
                                             (self.alongOf(touched) - self.grab_) / self.room());
    } else if (hasFocus(self)) {
        // Without the focus the wheel scrolls what the slider stands in.
        self.slideTo(self.value_ + touched.wheel * self.smallStep());
        event.stop(stop_level::EndsBubble);
    }
}

/// Where a key leads to; false for keys that lead nowhere.
bool Slider::keyTarget(std::int32_t key, float& target) const
{
    switch (key) {
    case SDLK_RIGHT:
    case SDLK_UP:
        target = value_ + smallStep();
        return true;
    case SDLK_LEFT:
    case SDLK_DOWN:
        target = value_ - smallStep();
        return true;
    case SDLK_PAGEUP:
        target = value_ + pageStep();
        return true;
    case SDLK_PAGEDOWN:
        target = value_ - pageStep();
        return true;
    case SDLK_HOME:
        target = minimum_;
        return true;
    case SDLK_END:
        target = maximum_;
        return true;
    default:
        return false;
    }
}

void Slider::onKey(WidgetEvent& event)
{
    auto& self = static_cast<Slider&>(*static_cast<Widget*>(event.user));
    float target = 0;
    if (!self.isChainEnabled() ||
        !self.keyTarget(static_cast<const KeyboardEvent&>(event).key, target))
        return;
    event.prevented = true;
    self.slideTo(target);
}

void Slider::drawContent()
{
    fadeIfDisabled(*this);
    const float channel = std::round(ChannelSize * engine().metrics.displayScale);
    const float thumb = thumbSize();
    const float start = thumbStart();
    const float middle = start + std::round(thumb / 2);
    const bool isHorizontal = axis_ == Axis::X;
    // From and to along the channel, and the size across it.
    const auto bar = [&](float from, float to, float size) {
        const float side = std::round(((isHorizontal ? height : width) - size) / 2);
        if (isHorizontal)
            fillRect(x + from, y + side, to - from, size);
        else
            fillRect(x + side, y + height - to, size, to - from);
    };
    setColor(channelColor, drawAlpha);
    bar(0, isHorizontal ? width : height, channel);
    setColor(color, drawAlpha);
    bar(0, middle, channel);
    bar(start, start + thumb, std::min(isHorizontal ? height : width, 2 * thumb));
    drawFocusFrame(*this);
}

} // namespace nui
