#include "support/nui/menu_text.h"

#include "nui/posix/native_menu_model.h"

namespace nui::test {

std::string menuText(void* nativeMenu)
{
    std::string text;
    for (const NativeMenuEntry& entry : static_cast<NativeMenuModel*>(nativeMenu)->entries) {
        if (entry.text.empty() && entry.submenu == nullptr) {
            text += "---\n";
            continue;
        }
        text += entry.text;
        if (!entry.shortcut.empty())
            text += " [" + entry.shortcut + "]";
        if (entry.checked)
            text += entry.radio ? " (dot)" : " (tick)";
        if (!entry.enabled)
            text += " (grey)";
        if (entry.submenu != nullptr)
            text += " >";
        text += '\n';
    }
    return text;
}

} // namespace nui::test
