#include "nui/events/keyboard_path.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/menus/popup_menu_item.h"
#include "nui/native_window.h"
#include "nui/widgets/screen.h"

#include <SDL_events.h>
#include <SDL_keyboard.h>

#include <algorithm>
#include <array>
#include <utility>

namespace nui {

ScreenPtr KeyboardPath::enabledScreen(std::uint32_t windowId)
{
    ScreenPtr screen = engine_.screens.find(windowId);
    if (!screen || !screen->isOpen() || !screen->window->enabled)
        return nullptr;
    engine_.screens.makeCurrent(screen);
    return screen;
}

/// Without the keyboard the screen has none.
WidgetPtr KeyboardPath::target(const ScreenPtr& screen) const
{
    if (!screen || screen != focusScreen)
        return nullptr;
    return screen->focusedWidget ? screen->focusedWidget : screen;
}

void KeyboardPath::handleKey(const SDL_KeyboardEvent& key)
{
    const ScreenPtr screen = enabledScreen(key.windowID);
    if (!screen)
        return;
    const bool down = key.type == SDL_KEYDOWN;
    // SDL's own releases, when a window loses the keyboard to a modal one or has gone, do not get
    // here: it is disabled by then, or not known.
    if (!down)
        std::erase_if(heldKeys_, [&](const HeldKey& held) { return held.code == key.keysym.sym; });
    if (const WidgetPtr widget = target(screen)) {
        SDL_StartTextInput();
        KeyboardEvent event(down ? keyboard::Down : keyboard::Up);
        event.key = key.keysym.sym;
        event.modifiers = key.keysym.mod;
        event.repeat = isRepeated(key);
        dispatch(*widget, event, Phase::AtTarget);
        if (event.prevented)
            return;
    }
    if (down && !isRepeated(key))
        activateShortcut(key);
}

void KeyboardPath::noteHeldKeys()
{
    // What presses buttons; other keys do no harm when they go on in another window.
    constexpr std::array<std::int32_t, 4> Pressing = {SDLK_RETURN, SDLK_KP_ENTER, SDLK_SPACE,
                                                      SDLK_ESCAPE};
    heldKeys_.clear();
    for (const std::int32_t code : Pressing) {
        if (isKeyDown(code))
            heldKeys_.push_back({code, false});
    }
}

void KeyboardPath::markReleasedKeys()
{
    for (HeldKey& held : heldKeys_)
        held.released = !isKeyDown(held.code);
}

void KeyboardPath::forgetReleasedKeys()
{
    std::erase_if(heldKeys_, [](const HeldKey& held) { return held.released; });
}

bool KeyboardPath::isRepeated(const SDL_KeyboardEvent& key) const
{
    return key.repeat != 0 ||
           std::ranges::find(heldKeys_, key.keysym.sym, &HeldKey::code) != heldKeys_.end();
}

void KeyboardPath::activateShortcut(const SDL_KeyboardEvent& key)
{
    for (const std::weak_ptr<PopupMenuItem>& known : engine_.menuItems()) {
        const std::shared_ptr<PopupMenuItem> item = known.lock();
        if (item && item->shortcut().matches(key.keysym.sym, key.keysym.mod)) {
            activate(*item);
            return;
        }
    }
}

void KeyboardPath::handleText(const SDL_TextInputEvent& input)
{
    TextEvent event(text::Committed);
    event.text = input.text;
    dispatchText(input.windowID, event);
}

void KeyboardPath::handleComposition(const SDL_TextEditingEvent& editing)
{
    TextEvent event(text::Composing);
    event.text = editing.text;
    event.start = editing.start;
    event.length = editing.length;
    dispatchText(editing.windowID, event);
}

void KeyboardPath::dispatchText(std::uint32_t windowId, TextEvent& event)
{
    if (const WidgetPtr widget = target(enabledScreen(windowId)))
        dispatch(*widget, event, Phase::AtTarget);
}

void KeyboardPath::setFocus(const WidgetPtr& widget)
{
    const ScreenPtr screen = focusScreen;
    if (!screen || screen != engine_.screens.current())
        return;
    if (widget != screen->focusedWidget) {
        const WidgetPtr old = screen->focusedWidget;
        if (old) {
            KeyboardEvent lost(keyboard::FocusLost);
            dispatch(*old, lost, Phase::AtTarget);
        } else {
            SDL_StartTextInput();
        }
        screen->focusedWidget = widget;
        if (widget) {
            KeyboardEvent gained(keyboard::FocusGained);
            dispatch(*widget, gained, Phase::AtTarget);
        } else {
            SDL_StopTextInput();
        }
    }
    if (widget)
        focusTaken = true;
}

void KeyboardPath::forgetTree(Widget& root)
{
    Screen* const screen = root.screen();
    if (screen == nullptr || !root.contains(screen->focusedWidget.get()))
        return;
    const WidgetPtr old = std::exchange(screen->focusedWidget, nullptr);
    if (focusScreen.get() == screen)
        SDL_StopTextInput();
    KeyboardEvent lost(keyboard::FocusLost);
    dispatch(*old, lost, Phase::AtTarget);
}

} // namespace nui
