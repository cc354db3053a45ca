#pragma once

#include "nui/menus/native_menu.h"

#include <vector>

namespace nui {

/// What stands for a menu where the system has none: the handle points to it.
struct NativeMenuModel {
    bool isBar = false;
    std::vector<NativeMenuEntry> entries;
};

} // namespace nui
