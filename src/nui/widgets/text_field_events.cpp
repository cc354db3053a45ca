#include "nui/engine/engine.h"
#include "nui/widgets/screen.h"
#include "nui/widgets/text_field.h"

#include <algorithm>

// What the pointer, the focus and input methods do to a field.

namespace nui {

namespace {

TextField& fieldOf(WidgetEvent& event)
{
    return static_cast<TextField&>(*event.target);
}

Point placeOf(const TouchEvent& event)
{
    return {static_cast<float>(event.x), static_cast<float>(event.y)};
}

bool isDown(const TouchEvent& event, std::uint32_t button)
{
    return (event.buttons & button) != 0;
}

} // namespace

void TextField::onFocusGained(WidgetEvent& event)
{
    TextField& field = fieldOf(event);
    field.focused_ = true;
    field.caretMoved_ = true;
    field.restartBlink();
}

void TextField::onFocusLost(WidgetEvent& event)
{
    TextField& field = fieldOf(event);
    field.focused_ = false;
    field.composing_ = false;
    field.stopBlink();
}

void TextField::onTextInput(WidgetEvent& event)
{
    TextField& field = fieldOf(event);
    if (!field.isChainEnabled())
        return;
    field.closeMenu();
    field.acceptText(static_cast<const TextEvent&>(event));
}

void TextField::onComposition(WidgetEvent& event)
{
    TextField& field = fieldOf(event);
    if (field.isChainEnabled())
        field.compose(static_cast<const TextEvent&>(event));
}

void TextField::compose(const TextEvent& event)
{
    const WidgetPtr held = weak_from_this().lock();
    if (event.text.empty() && event.length == 0) {
        if (composing_ && cancelComposition_)
            deleteSelection();
        composing_ = false;
        return;
    }
    // What was composed before stands selected, and goes.
    const std::int32_t count = insertText(event.text);
    finishMove(std::max(caret_ - count, 0), anchor_);
    composing_ = true;
}

void TextField::onPress(WidgetEvent& event)
{
    fieldOf(event).pressAt(static_cast<TouchEvent&>(event));
}

void TextField::pressAt(TouchEvent& event)
{
    const Screen* const window = screen();
    if (window == nullptr)
        return;
    const WidgetPtr held = shared_from_this();
    const bool left = isDown(event, pointer_button::Left);
    const bool right = isDown(event, pointer_button::Right);
    bool selectLater = false;
    if (window->focusedWidget.get() != this) {
        engine().setFocus(held);
        if (right)
            selectAll();
        else
            selectLater = left;
    }
    if (left && !getText().empty()) {
        const std::int32_t index = indexAt(placeOf(event));
        if (index >= 0) {
            // The view stays: the character that was pressed stays under the pointer.
            moveTo(index, index);
            event.capture();
        }
    }
    selectOnRelease_ = selectLater;
    // The screen would close the menu at once, as for any press beside it.
    if (right && openContextMenu(placeOf(event)))
        event.stop(stop_level::EndsBubble);
}

void TextField::onDrag(WidgetEvent& event)
{
    TextField& field = fieldOf(event);
    if (engine().pointer.captured().get() != &field)
        return;
    const std::int32_t index = field.indexAt(placeOf(static_cast<const TouchEvent&>(event)));
    if (index < 0)
        return;
    field.selectOnRelease_ = false;
    field.composing_ = false;
    field.finishMove(index, field.anchor_);
}

void TextField::onRelease(WidgetEvent& event)
{
    TextField& field = fieldOf(event);
    if (!field.selectOnRelease_)
        return;
    field.selectOnRelease_ = false;
    if (static_cast<const TouchEvent&>(event).buttons == pointer_button::Left)
        field.selectAll();
}

std::int32_t TextField::indexAt(Point onWindow) const
{
    return indexAtBoxPoint({onWindow.x - x - textBox().left, onWindow.y - y - textBox().top});
}

/// Negative if the font cannot tell.
std::int32_t TextField::indexAtBoxPoint(Point inBox) const
{
    Font* const laidOut = font();
    if (laidOut == nullptr)
        return -1;
    if (scrolls())
        return fromShown(laidOut->indexAtX(std::string(shownText()), fontSize, inBox.x - scrollX_));
    return fromShown(laidOut->indexAtPoint(boxLayout(), inBox));
}

} // namespace nui
