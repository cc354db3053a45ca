#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nui {

/// A key with modifiers that activates a menu item. Needs SDL's video for the names of keys that
/// stand for no letter.
struct Shortcut {
    std::int32_t key = 0;        ///< an SDL_Keycode; 0 for no shortcut
    std::uint32_t modifiers = 0; ///< SDL_Keymod bits; those of both sides where either counts

    /// Names joined by "+", "-" or spaces, without regard to ASCII case: "Ctrl", "Shift", "Alt",
    /// "AltGr", "Command", and SDL's name of the key. A name that nobody knows gives no key.
    [[nodiscard]] static Shortcut parse(std::string_view text);

    /// Whether a key event means it. Ctrl, Shift and Command count from either side of the
    /// keyboard; Alt and AltGr are told apart.
    [[nodiscard]] bool matches(std::int32_t pressedKey, std::uint32_t pressedModifiers) const;
    /// What a menu shows beside the item: "Ctrl+Shift+S". Empty without a key.
    [[nodiscard]] std::string displayText() const;
};

} // namespace nui
