#include "nui/engine/engine.h"
#include "nui/widgets/text_field.h"

#include <SDL_keycode.h>

// What keys do in a field.

namespace nui {

namespace {

constexpr std::uint16_t Shift = KMOD_SHIFT;
constexpr std::uint16_t Control = KMOD_CTRL;
constexpr std::uint16_t Modifiers = KMOD_SHIFT | KMOD_CTRL | KMOD_ALT | KMOD_GUI;

bool isReturn(std::int32_t key)
{
    return key == SDLK_RETURN || key == SDLK_KP_ENTER;
}

} // namespace

void TextField::onKey(WidgetEvent& event)
{
    auto& field = static_cast<TextField&>(*event.target);
    const auto& pressed = static_cast<const KeyboardEvent&>(event);
    if (!field.isChainEnabled() || field.handleMenuKey(event))
        return;
    bool consumed = false;
    const auto modifiers = static_cast<std::uint16_t>(pressed.modifiers & Modifiers);
    const WidgetPtr held = field.weak_from_this().lock();
    if (field.composing_) {
        // The keys are the input method's.
        field.cancelComposition_ = pressed.key == SDLK_BACKSPACE || pressed.key == SDLK_ESCAPE;
        consumed = isReturn(pressed.key);
    } else if ((modifiers & ~Shift) == 0) {
        consumed = field.handleEditKey(pressed.key, modifiers != 0);
    } else if ((modifiers & ~Control) == 0) {
        consumed = field.handleCommandKey(pressed.key);
    }
    if (consumed)
        event.consume();
}

/// Answers whether the key is used up. `extend`: with Shift.
bool TextField::handleEditKey(std::int32_t key, bool extend)
{
    switch (key) {
    case SDLK_BACKSPACE:
        return removeBeside(true);
    case SDLK_DELETE:
        return removeBeside(false);
    case SDLK_HOME:
        finishMove(0, extend ? anchor_ : 0);
        return !extend;
    case SDLK_END: {
        const std::int32_t end = editState().length();
        finishMove(end, extend ? anchor_ : end);
        return !extend;
    }
    case SDLK_RIGHT:
        moveBy(1, extend);
        return true;
    case SDLK_LEFT:
        moveBy(-1, extend);
        return true;
    case SDLK_DOWN:
    case SDLK_UP:
        return moveByLine(key == SDLK_DOWN, extend);
    default:
        break;
    }
    if (!isReturn(key) || !rules_.multiline)
        return false;
    insertText("\n");
    return true;
}

bool TextField::handleCommandKey(std::int32_t key)
{
    switch (key) {
    case SDLK_a:
        selectAll();
        return false;
    case SDLK_c:
        (void)copy();
        return true;
    case SDLK_v:
        paste();
        return true;
    case SDLK_x:
        cut();
        return true;
    default:
        return false;
    }
}

bool TextField::removeBeside(bool backward)
{
    TextEditState state = editState();
    const bool removed = backward ? state.deleteBackward() : state.deleteForward();
    if (removed)
        finishEdit(state);
    return removed;
}

void TextField::moveBy(std::int32_t step, bool extend)
{
    TextEditState state = editState();
    state.moveTo(state.caret + step, extend);
    finishMove(state.caret, state.anchor);
}

/// To the character nearest to where the caret was last drawn, one line further.
bool TextField::moveByLine(bool down, bool extend)
{
    Font* const laidOut = font();
    if (laidOut == nullptr)
        return false;
    const float line = laidOut->getLineHeight(fontSize, 1);
    // The font has left a place in the line above the caret's.
    const float target = down ? caretY_ + 2 * line + 1 : caretY_;
    if (down ? target > textBox().height : caretY_ < 0)
        return false;
    const std::int32_t index = indexAtBoxPoint({caretX_, target});
    if (index < 0)
        return false;
    // Until it is drawn there.
    caretY_ += down ? line : -line;
    finishMove(index, extend ? anchor_ : index);
    return !extend;
}

} // namespace nui
