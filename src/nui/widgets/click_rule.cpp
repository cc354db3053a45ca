#include "nui/widgets/click_rule.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/widget.h"

#include <SDL_keycode.h>

#include <algorithm>

namespace nui {

namespace {

bool isLeft(const WidgetEvent& event)
{
    return (static_cast<const TouchEvent&>(event).buttons & pointer_button::Left) != 0;
}

void onRelease(WidgetEvent& event)
{
    if (endsClick(event))
        raiseClick(event);
}

void onKeyDown(WidgetEvent& event)
{
    const auto& pressed = static_cast<const KeyboardEvent&>(event);
    const std::int32_t key = pressed.key;
    const bool activates = key == SDLK_RETURN || key == SDLK_KP_ENTER || key == SDLK_SPACE;
    if (!activates || !event.target->isChainEnabled())
        return;
    event.consume();
    // A key that is held would go on to what the activation has brought up.
    if (!pressed.repeat)
        raiseActivate(*event.target);
}

} // namespace

void armClickRule(Widget& widget)
{
    subscribe(widget, touch::Press, captureLeftPress, nullptr);
    subscribe(widget, touch::Release, onRelease, nullptr);
}

void armKeyboardRule(Widget& widget)
{
    // In front of a form's, also when the widget is armed again after the form was built.
    subscribeFirst(widget, keyboard::Down, onKeyDown, nullptr);
}

std::uint32_t raiseActivate(Widget& widget)
{
    WidgetEvent activation(plain_event::Activate);
    bubble(widget, activation);
    return activation.stopLevel;
}

void captureLeftPress(WidgetEvent& press)
{
    if (isLeft(press))
        static_cast<TouchEvent&>(press).capture();
}

bool endsClick(const WidgetEvent& release)
{
    return isLeft(release) && engine().pointer.pressed().get() == release.target;
}

void raiseClick(WidgetEvent& release)
{
    release.stopLevel = std::max(release.stopLevel, raiseActivate(*release.target));
}

} // namespace nui
