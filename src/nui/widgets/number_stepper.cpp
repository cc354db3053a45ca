#include "nui/widgets/number_stepper.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/control_looks.h"
#include "nui/widgets/number_field.h"

#include <algorithm>

namespace nui {

namespace {

// Milliseconds until a held arrow steps again: at first, and from then on.
constexpr std::uint64_t FirstDelay = 400;
constexpr std::uint64_t NextDelay = 60;

} // namespace

NumberStepper::NumberStepper()
{
    color = control_color::Ink;
    subscribe(*this, touch::Press, onPress, static_cast<Widget*>(this));
    subscribe(*this, touch::Release, onRelease, static_cast<Widget*>(this));
    subscribe(*this, TimerDue, onTimer, static_cast<Widget*>(this));
}

void NumberStepper::drawContent()
{
    const float quarter = height / 4;
    const float size = std::min(width / 4, quarter);
    const auto arrow = [&](float top, float direction) {
        setColor(direction_ == direction ? control_color::Accent : color, drawAlpha);
        drawArrow({x + width / 2, y + top}, size, Axis::Y, direction > 0);
    };
    arrow(quarter, 1);
    arrow(3 * quarter, -1);
}

void NumberStepper::step(std::uint64_t nextDelay)
{
    auto* const field = dynamic_cast<NumberField*>(parent);
    if (field == nullptr || !isChainEnabled())
        return;
    engine().addTimer(nextDelay, shared_from_this(), true);
    field->stepBy(direction_);
}

void NumberStepper::onPress(WidgetEvent& event)
{
    auto& self = static_cast<NumberStepper&>(*static_cast<Widget*>(event.user));
    auto& touched = static_cast<TouchEvent&>(event);
    if ((touched.buttons & pointer_button::Left) == 0)
        return;
    touched.capture();
    if (const auto* const field = dynamic_cast<NumberField*>(self.parent))
        field->focusText();
    self.direction_ = static_cast<float>(touched.y) < self.y + self.height / 2 ? 1.0F : -1.0F;
    self.step(FirstDelay);
}

void NumberStepper::onRelease(WidgetEvent& event)
{
    static_cast<NumberStepper&>(*static_cast<Widget*>(event.user)).direction_ = 0;
}

void NumberStepper::onTimer(WidgetEvent& event)
{
    auto& self = static_cast<NumberStepper&>(*static_cast<Widget*>(event.user));
    if (self.direction_ != 0)
        self.step(NextDelay);
}

} // namespace nui
