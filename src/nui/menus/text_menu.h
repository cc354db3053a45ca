#pragma once

#include <memory>
#include <string>

namespace nui {

class PopupMenu;

/// Names of the items that text fields know.
namespace text_menu_item {
constexpr const char* Cut = "Cut";
constexpr const char* Copy = "Copy";
constexpr const char* Paste = "Paste";
constexpr const char* Delete = "Delete";
constexpr const char* SelectAll = "SelectAll";
} // namespace text_menu_item

/// The menu "text_menu" of a layout file: what text fields open. The path is UTF-8. Null without
/// the file or the menu.
[[nodiscard]] std::shared_ptr<PopupMenu> loadTextMenu(const std::string& path);

} // namespace nui
