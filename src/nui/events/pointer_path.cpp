#include "nui/events/pointer_path.h"

#include "nui/engine/engine.h"
#include "nui/events/dispatch.h"
#include "nui/widgets/screen.h"

#include <SDL_mouse.h>

#include <utility>

namespace nui {

namespace {

std::uint32_t buttonsDown()
{
    return buttonBits(SDL_GetMouseState(nullptr, nullptr));
}

std::uint32_t depthOf(const Widget* widget)
{
    std::uint32_t depth = 0;
    for (; widget != nullptr; widget = widget->parent)
        ++depth;
    return depth;
}

/// The innermost widget that both lie in, or null.
const Widget* commonAncestor(const Widget* one, const Widget* other)
{
    std::uint32_t oneDepth = depthOf(one);
    std::uint32_t otherDepth = depthOf(other);
    for (; oneDepth > otherDepth; --oneDepth)
        one = one->parent;
    for (; otherDepth > oneDepth; --otherDepth)
        other = other->parent;
    while (one != other) {
        one = one->parent;
        other = other->parent;
    }
    return one;
}

/// Held, as listeners may let go of what they listen on.
WidgetPtr parentOf(const Widget& widget)
{
    return widget.parent != nullptr ? widget.parent->shared_from_this() : nullptr;
}

TouchEvent at(const TouchEvent& event, EventType type)
{
    TouchEvent other(type);
    other.x = event.x;
    other.y = event.y;
    other.buttons = event.buttons;
    return other;
}

} // namespace

std::uint32_t buttonBits(std::uint32_t state)
{
    std::uint32_t bits = 0;
    if ((state & (SDL_BUTTON_LMASK | SDL_BUTTON_X1MASK)) != 0)
        bits |= pointer_button::Left;
    if ((state & SDL_BUTTON_MMASK) != 0)
        bits |= pointer_button::Middle;
    if ((state & (SDL_BUTTON_RMASK | SDL_BUTTON_X2MASK)) != 0)
        bits |= pointer_button::Right;
    return bits;
}

void PointerPath::handle(const Input& input)
{
    x_ = input.x;
    y_ = input.y;
    TouchEvent event(input.type);
    event.x = input.x;
    event.y = input.y;
    event.wheel = input.wheel;
    event.buttons = input.buttons != 0 ? input.buttons : buttonsDown();
    event.captureRequest = captured_.get();
    down_ = event.buttons != 0;

    const ScreenPtr screen = engine_.screens.find(input.windowId);
    // The window of a screen that another one is modal over is disabled.
    if (!screen || !screen->isOpen() || !screen->window->enabled)
        return;
    engine_.screens.makeCurrent(screen);
    deliver(event, input, *screen);
}

void PointerPath::deliver(TouchEvent& event, const Input& input, Screen& screen)
{
    const bool noPress = !pressed_ && event.type != touch::Press;
    const WidgetPtr oldCapture = captured_;
    WidgetPtr deepest;
    WidgetPtr captured = captured_;
    screen.hitTest(event, deepest, captured, 0);
    // On the bare screen nobody hears of the press, which is beside an open popup all the same.
    if (!deepest && event.type == touch::Press)
        engine_.popups.pressedOnScreen();
    // A listener may have closed the screen, or taken what was hit off it.
    const auto isThere = [&screen](const WidgetPtr& widget) {
        return screen.isOpen() && screen.contains(widget.get());
    };
    setCaptured(isThere(captured) ? captured : nullptr);
    if (!isThere(deepest))
        deepest.reset();
    if (deepest != hover_)
        moveHover(event, deepest);
    if (!isThere(deepest))
        deepest.reset();

    if (deepest && event.type == touch::Press)
        press(event, screen, deepest);
    else if (deepest && event.type == touch::Move)
        moveOver(deepest, noPress);
    else if (event.type == touch::Release)
        release(event, input.clicks, deepest, oldCapture);
    finishCapture(event);
}

void PointerPath::press(const TouchEvent& event, Screen& screen, const WidgetPtr& deepest)
{
    engine_.toolTips.clearTime();
    if (event.buttons == pointer_button::Left || deepest == captured_)
        pressed_ = deepest;
    KeyboardPath& keyboard = engine_.keyboard;
    // A click beside the focused widget takes the keyboard away from it.
    if (keyboard.focusScreen.get() == &screen && screen.focusedWidget &&
        screen.focusedWidget != deepest && !keyboard.focusTaken)
        keyboard.setFocus(nullptr);
    if (pressed_ == deepest && deepest->stateTemplates && deepest->stateTemplates->pressed)
        deepest->applyTemplate(deepest->stateTemplates->pressed.get());
}

void PointerPath::moveOver(const WidgetPtr& deepest, bool noPress)
{
    engine_.toolTips.restAgain();
    if (pressed_ && pressed_ != deepest && (pressed_ != captured_ || noPress))
        endPress();
}

void PointerPath::release(const TouchEvent& event, std::uint32_t clicks, const WidgetPtr& deepest,
                          const WidgetPtr& oldCapture)
{
    if (deepest && pressed_ == deepest && event.stopLevel == stop_level::None && !event.prevented)
        sendClicks(event, clicks, *deepest);
    // Another button's release leaves the press to the left one, unless the press has just lost
    // the pointer.
    if (event.buttons == pointer_button::Left || (pressed_ == oldCapture && pressed_ != captured_))
        endPress();
}

void PointerPath::sendClicks(const TouchEvent& event, std::uint32_t clicks, Widget& widget)
{
    std::uint32_t level = stop_level::None;
    if (clicks == 2) {
        TouchEvent twice = at(event, touch::DoubleClick);
        bubble(widget, twice);
        level = twice.stopLevel;
    }
    if (clicks != 0 && level < stop_level::Swallow) {
        TouchEvent click = at(event, touch::Click);
        bubble(widget, click);
    }
}

void PointerPath::endPress()
{
    if (!pressed_)
        return;
    const WidgetPtr ended = std::exchange(pressed_, nullptr);
    if (ended == hover_ && ended->stateTemplates && ended->stateTemplates->over)
        ended->applyTemplate(ended->stateTemplates->over.get());
    else
        ended->resetState();
}

void PointerPath::finishCapture(TouchEvent& event)
{
    if (!captured_)
        return;
    const WidgetPtr captured = captured_;
    if (!event.captured)
        bubble(*captured, event);
    const bool allUp = event.type == touch::Release && buttonsDown() == 0;
    if (event.captureRequest != captured.get() || allUp)
        setCaptured(nullptr);
}

void PointerPath::setCaptured(WidgetPtr widget)
{
    const bool had = captured_ != nullptr;
    captured_ = std::move(widget);
    const bool has = captured_ != nullptr;
    if (has != had)
        SDL_CaptureMouse(has ? SDL_TRUE : SDL_FALSE);
}

void PointerPath::moveHover(const TouchEvent& event, const WidgetPtr& deepest)
{
    const WidgetPtr old = hover_;
    const Widget* const common = commonAncestor(old.get(), deepest.get());
    leave(event, old, common);
    if (old) {
        TouchEvent left = at(event, touch::LeaveSelf);
        dispatch(*old, left, Phase::AtTarget);
    }
    if (deepest) {
        TouchEvent entered = at(event, touch::EnterSelf);
        dispatch(*deepest, entered, Phase::AtTarget);
    }
    enter(event, deepest, common);
    if (deepest && !deepest->toolTip.empty())
        engine_.toolTips.aimAt(*deepest);
    hover_ = deepest && deepest->screen() != nullptr ? deepest : nullptr;
    engine_.toolTips.hide();
}

void PointerPath::leave(const TouchEvent& event, const WidgetPtr& from, const Widget* common)
{
    TouchEvent left = at(event, touch::Leave);
    for (WidgetPtr widget = from; widget && widget.get() != common; widget = parentOf(*widget)) {
        if (left.stopLevel >= stop_level::EndsBubble)
            return;
        dispatch(*widget, left, widget == from ? Phase::AtTarget : Phase::Bubbling);
        const StateTemplates* const looks = widget->stateTemplates.get();
        if (!left.prevented && looks != nullptr && looks->over && looks->normal)
            widget->resetState();
    }
}

void PointerPath::enter(const TouchEvent& event, const WidgetPtr& to, const Widget* common)
{
    TouchEvent entered = at(event, touch::Enter);
    for (WidgetPtr widget = to; widget && widget.get() != common; widget = parentOf(*widget)) {
        if (entered.stopLevel >= stop_level::EndsBubble)
            return;
        const bool isCaptured = captured_ == widget;
        if (captured_ && !isCaptured)
            continue;
        dispatch(*widget, entered, widget == to ? Phase::AtTarget : Phase::Bubbling);
        const StateTemplates* const looks = widget->stateTemplates.get();
        if (entered.prevented || looks == nullptr || !looks->normal)
            continue;
        if (isCaptured && looks->pressed)
            widget->applyTemplate(looks->pressed.get());
        else
            widget->applyTemplate(looks->over.get());
    }
}

void PointerPath::forgetTree(const Widget& root)
{
    if (root.contains(pressed_.get()))
        pressed_.reset();
    if (root.contains(hover_.get())) {
        // It hears nothing of it, as those who listened may have gone already.
        hover_.reset();
        if (engine_.linkCursor && SDL_GetCursor() == engine_.linkCursor.get())
            SDL_SetCursor(SDL_GetDefaultCursor());
    }
    if (root.contains(captured_.get()))
        setCaptured(nullptr);
}

void PointerPath::refreshButtons()
{
    down_ = buttonsDown() != 0;
}

void PointerPath::letGo()
{
    endPress();
    setCaptured(nullptr);
    refreshButtons();
}

} // namespace nui
