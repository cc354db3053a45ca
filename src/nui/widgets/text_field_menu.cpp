#include "nui/engine/engine.h"
#include "nui/menus/popup_menu.h"
#include "nui/menus/text_menu.h"
#include "nui/widgets/list_box.h"
#include "nui/widgets/popup_list.h"
#include "nui/widgets/text_field.h"

#include <SDL_clipboard.h>

#include <utility>
#include <vector>

// The menu of editing commands that the right button opens.

namespace nui {

namespace {

/// What a list shows of a menu: no separating lines.
std::vector<PopupMenuItemPtr> shownItems(const PopupMenu& menu)
{
    std::vector<PopupMenuItemPtr> items;
    for (const PopupMenuItemPtr& item : menu.children()) {
        if (item->visible && !item->text().empty())
            items.push_back(item);
    }
    return items;
}

} // namespace

/// Enables what makes sense at the moment.
void TextField::prepareMenu(PopupMenu& menu) const
{
    const TextEditState state = editState();
    const bool selectsAll = state.length() == static_cast<std::int32_t>(state.selection().size());
    for (const PopupMenuItemPtr& item : menu.children()) {
        if (item->name == text_menu_item::Cut || item->name == text_menu_item::Copy ||
            item->name == text_menu_item::Delete)
            item->enabled = state.hasSelection();
        else if (item->name == text_menu_item::Paste)
            item->enabled = SDL_HasClipboardText() == SDL_TRUE;
        else if (item->name == text_menu_item::SelectAll)
            item->enabled = !state.text.empty() && !selectsAll;
    }
}

/// False without a menu. It is drawn, like all lists of the toolkit, and the field keeps the
/// keyboard meanwhile.
bool TextField::openContextMenu(Point onWindow)
{
    const PopupMenuPtr menu = engine().textMenu;
    if (!menu)
        return false;
    menu->reloadText();
    prepareMenu(*menu);
    const std::vector<PopupMenuItemPtr> items = shownItems(*menu);
    std::vector<std::string> keys;
    keys.reserve(items.size());
    for (const PopupMenuItemPtr& item : items)
        keys.push_back(item->textKey());
    contextMenu_ = std::make_shared<PopupList>();
    contextMenu_->setItems(std::move(keys));
    for (std::size_t index = 0; index < items.size(); ++index)
        contextMenu_->list().children()[index]->setEnabled(items[index]->enabled);
    // The field is the menu's owner, for as long as both are there.
    contextMenu_->setChoice([items, owner = weak_from_this()](std::int32_t index) {
        const PopupMenuItemPtr& item = items[static_cast<std::size_t>(index)];
        if (const auto field = std::dynamic_pointer_cast<TextField>(owner.lock()))
            field->runMenuCommand(item->name);
        activate(*item);
    });
    contextMenu_->openAt(onWindow, this);
    return true;
}

void TextField::runMenuCommand(const std::string& item)
{
    if (item == text_menu_item::Cut)
        cut();
    else if (item == text_menu_item::Copy)
        (void)copy();
    else if (item == text_menu_item::Paste)
        paste();
    else if (item == text_menu_item::Delete)
        deleteSelection();
    else if (item == text_menu_item::SelectAll)
        selectAll();
}

bool TextField::isMenuOpen() const
{
    return contextMenu_ && contextMenu_->isOpen();
}

bool TextField::handleMenuKey(WidgetEvent& event)
{
    return contextMenu_ && contextMenu_->handleKey(event);
}

void TextField::closeMenu()
{
    if (contextMenu_)
        contextMenu_->close();
    contextMenu_.reset();
}

} // namespace nui
