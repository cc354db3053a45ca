#include "nui/menus/text_menu.h"

#include "nui/menus/popup_menu.h"
#include "nui/reader/layout_loader.h"
#include "nui/reader/resource_file.h"

namespace nui {

std::shared_ptr<PopupMenu> loadTextMenu(const std::string& path)
{
    // Programs without fields need no such file.
    if (contentOf(path).empty())
        return nullptr;
    LayoutLoader loader(path);
    loader.load();
    const auto& menus = loader.pack().menus;
    const auto found = menus.find("text_menu");
    return found == menus.end() ? nullptr : found->second;
}

} // namespace nui
