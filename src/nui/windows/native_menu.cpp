#include "nui/menus/native_menu.h"

#include "misc/text.h"

#include <windows.h>

namespace nui {

namespace {

HMENU menu(void* handle)
{
    return static_cast<HMENU>(handle);
}

} // namespace

NativeMenu::NativeMenu(bool isBar) : handle_(isBar ? CreateMenu() : CreatePopupMenu()) {}

NativeMenu::~NativeMenu()
{
    // A window takes the bar that it has with it when it goes.
    if (IsMenu(menu(handle_)) == FALSE)
        return;
    clear();
    DestroyMenu(menu(handle_));
}

void NativeMenu::append(const NativeMenuEntry& entry)
{
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STATE;
    info.fState =
        (entry.enabled ? MFS_ENABLED : MFS_GRAYED) | (entry.checked ? MFS_CHECKED : MFS_UNCHECKED);
    std::u16string text;
    if (entry.text.empty() && entry.submenu == nullptr) {
        info.fType = MFT_SEPARATOR;
    } else {
        info.fMask |= MIIM_STRING;
        info.fType = entry.radio ? MFT_RADIOCHECK : MFT_STRING;
        text = nrd::misc::to_utf16(entry.shortcut.empty() ? entry.text
                                                          : entry.text + '\t' + entry.shortcut);
        info.dwTypeData = reinterpret_cast<wchar_t*>(text.data());
    }
    if (entry.submenu != nullptr) {
        info.fMask |= MIIM_SUBMENU;
        info.hSubMenu = menu(entry.submenu);
    } else {
        info.fMask |= MIIM_ID;
        info.wID = entry.command;
    }
    const int count = GetMenuItemCount(menu(handle_));
    InsertMenuItemW(menu(handle_), count < 0 ? 0 : static_cast<UINT>(count), TRUE, &info);
}

void NativeMenu::clear()
{
    while (GetMenuItemCount(menu(handle_)) > 0)
        RemoveMenu(menu(handle_), 0, MF_BYPOSITION);
}

} // namespace nui
