#include "nui/widgets/selection_list.h"

#include "nui/draw/drawing.h"

#include <SDL_keycode.h>

#include <algorithm>
#include <utility>

namespace nui {

void SelectionList::select(std::int32_t index)
{
    if (index >= static_cast<std::int32_t>(count()))
        return;
    ListBox::select(index);
    anchor_ = current();
    selection_.clear();
    if (anchor_ != None)
        selection_.insert(anchor_);
}

void SelectionList::setSelection(const std::set<std::int32_t>& indices)
{
    selection_.clear();
    for (const std::int32_t index : indices) {
        if (index >= 0 && index < static_cast<std::int32_t>(count()))
            selection_.insert(index);
    }
}

std::set<std::int32_t> SelectionList::usableBetween(std::int32_t one, std::int32_t other) const
{
    std::set<std::int32_t> indices;
    for (std::int32_t index = std::min(one, other); index <= std::max(one, other); ++index) {
        if (isUsable(index))
            indices.insert(index);
    }
    return indices;
}

void SelectionList::selectByUser(std::set<std::int32_t> indices)
{
    if (indices == selection_)
        return;
    selection_ = std::move(indices);
    raiseSelection();
}

void SelectionList::toggle(std::int32_t index)
{
    anchor_ = index;
    std::set<std::int32_t> indices = selection_;
    if (indices.erase(index) == 0)
        indices.insert(index);
    selectByUser(std::move(indices));
}

void SelectionList::choose(std::int32_t index, By by, std::uint16_t modifiers)
{
    setCurrent(index);
    if ((modifiers & KMOD_SHIFT) != 0 && anchor_ != None) {
        selectByUser(usableBetween(anchor_, index));
    } else if ((modifiers & KMOD_CTRL) != 0) {
        if (by == By::Pointer)
            toggle(index);
    } else {
        anchor_ = index;
        selectByUser({index});
    }
}

bool SelectionList::handleOtherKey(std::int32_t key, std::uint16_t modifiers)
{
    if (key == SDLK_SPACE && current() != None && !isBeingTypedTo()) {
        toggle(current());
        return true;
    }
    if (key == SDLK_a && (modifiers & KMOD_CTRL) != 0 && count() != 0) {
        selectByUser(usableBetween(0, static_cast<std::int32_t>(count()) - 1));
        return true;
    }
    return false;
}

/// The item that the keys are at has a line around it.
void SelectionList::drawChildren(Point position)
{
    ListBox::drawChildren(position);
    if (current() == None || !hasFocus(*this))
        return;
    const Widget& item = *children()[static_cast<std::size_t>(current())];
    setColor(control_color::Accent, drawAlpha);
    rectOutline(x + 2.5F, item.y + 0.5F, width - 5, item.height - 1);
}

} // namespace nui
