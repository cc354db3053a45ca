#include "support/nui/menu_text.h"

#include "misc/text.h"

#include <array>
#include <windows.h>

namespace nui::test {

namespace {

std::string entryText(HMENU menu, UINT position)
{
    std::array<wchar_t, 200> buffer{};
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_STRING | MIIM_SUBMENU;
    info.dwTypeData = buffer.data();
    info.cch = static_cast<UINT>(buffer.size());
    if (GetMenuItemInfoW(menu, position, TRUE, &info) == FALSE)
        return "no entry";
    if ((info.fType & MFT_SEPARATOR) != 0)
        return "---";
    const std::u16string shown(reinterpret_cast<const char16_t*>(buffer.data()), info.cch);
    std::string text = nrd::misc::to_utf8(shown);
    if (const std::size_t tab = text.find('\t'); tab != text.npos)
        text = text.substr(0, tab) + " [" + text.substr(tab + 1) + "]";
    if ((info.fState & MFS_CHECKED) != 0)
        text += (info.fType & MFT_RADIOCHECK) != 0 ? " (dot)" : " (tick)";
    if ((info.fState & MFS_GRAYED) != 0)
        text += " (grey)";
    if (info.hSubMenu != nullptr)
        text += " >";
    return text;
}

} // namespace

std::string menuText(void* nativeMenu)
{
    const auto menu = static_cast<HMENU>(nativeMenu);
    std::string text;
    for (int position = 0; position < GetMenuItemCount(menu); ++position)
        text += entryText(menu, static_cast<UINT>(position)) + '\n';
    return text;
}

} // namespace nui::test
