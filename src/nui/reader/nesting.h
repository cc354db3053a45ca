#pragma once

namespace nui {

class PopupMenu;
class Widget;

/// How many widgets are nested in each other from this one down, itself included. Every one is
/// looked at once, in however many places it is shared.
[[nodiscard]] int levelsOf(const Widget& widget);
/// The same for a menu, its menus and their items.
[[nodiscard]] int levelsOf(const PopupMenu& menu);

} // namespace nui
