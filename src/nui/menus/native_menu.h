#pragma once

#include <cstdint>
#include <string>

namespace nui {

/// One line of a native menu.
struct NativeMenuEntry {
    std::string text;          ///< UTF-8; "&" marks the letter for the keyboard
    std::string shortcut;      ///< shown at the right, may be empty
    std::uint32_t command = 0; ///< sent when it is chosen; without meaning for a submenu
    bool checked = false;
    bool radio = false; ///< the mark of a checked entry is a dot
    bool enabled = true;
    void* submenu = nullptr; ///< handle of another native menu, which keeps its own life
};

/// A menu of the window system: the bar of a window, or one that opens. Where the system has
/// none, a handle that nothing shows.
class NativeMenu {
public:
    explicit NativeMenu(bool isBar);
    NativeMenu(const NativeMenu&) = delete;
    NativeMenu& operator=(const NativeMenu&) = delete;
    ~NativeMenu();

    [[nodiscard]] void* handle() const { return handle_; }
    void append(const NativeMenuEntry& entry);
    /// Submenus are let go, not destroyed.
    void clear();

private:
    void* handle_; ///< HMENU on Windows
};

} // namespace nui
