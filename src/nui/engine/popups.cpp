#include "nui/engine/popups.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/overlay.h"
#include "nui/widgets/screen.h"

#include <vector>

namespace nui {

namespace {

void removeGroup(Screen& screen, std::uint32_t group)
{
    if (group == 0)
        return;
    const std::vector<WidgetPtr> children = screen.children();
    for (const WidgetPtr& child : children) {
        const auto* const overlay = dynamic_cast<const Overlay*>(child.get());
        if (overlay != nullptr && overlay->group == group)
            screen.remove(child.get());
    }
}

} // namespace

void Popups::show(const WidgetPtr& popup)
{
    const ScreenPtr screen = engine_.screens.current();
    if (!screen || !popup)
        return;
    if (popup_ && popup_ != popup)
        close();
    popup_ = popup;
    subscribe(*popup, touch::Press, onPress, this);
    screen->add(popup);
    screen->markDirty();
}

void Popups::close()
{
    if (!popup_)
        return;
    const WidgetPtr closing = popup_;
    popup_.reset();
    unsubscribe(*closing, touch::Press, onPress);
    Screen* const screen = closing->screen();
    if (screen == nullptr)
        return;
    engine_.pointer.forgetTree(*closing);
    engine_.keyboard.forgetTree(*closing);
    screen->remove(closing.get());
    if (const auto* const overlay = dynamic_cast<const Overlay*>(closing.get()))
        removeGroup(*screen, overlay->group);
    screen->markDirty();
}

void Popups::closeOn(const Screen& screen)
{
    if (popup_ && screen.contains(popup_.get()))
        close();
}

void Popups::pressedOnScreen()
{
    if (!pressed_)
        close();
    pressed_ = false;
}

void Popups::onPress(WidgetEvent& event)
{
    static_cast<Popups*>(event.user)->pressed_ = true;
}

} // namespace nui
