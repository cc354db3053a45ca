#pragma once

#include <string>

namespace nui::test {

/// What the window system has of a native menu, one line an entry, as "text [shortcut] (marks)";
/// an entry of a submenu ends in " >", a separating line is "---".
[[nodiscard]] std::string menuText(void* nativeMenu);

} // namespace nui::test
