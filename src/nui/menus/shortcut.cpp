#include "nui/menus/shortcut.h"

#include <SDL_keyboard.h>

#include <array>

namespace nui {

namespace {

constexpr std::string_view Separators = "+- ";

struct Modifier {
    std::string_view token; ///< in upper case
    const char* shown;      ///< behind a "+"
    std::uint32_t bits;
};

constexpr std::array<Modifier, 5> Modifiers = {
    Modifier{"CTRL", "+Ctrl", KMOD_CTRL}, Modifier{"SHIFT", "+Shift", KMOD_SHIFT},
    Modifier{"ALT", "+Alt", KMOD_LALT}, Modifier{"ALTGR", "+AltGr", KMOD_RALT},
    Modifier{"COMMAND", "+Command", KMOD_GUI}};

static_assert(KMOD_CTRL == 0xC0 && KMOD_SHIFT == 0x3 && KMOD_LALT == 0x100 && KMOD_RALT == 0x200 &&
              KMOD_GUI == 0xC00);

std::string inUpperCase(std::string_view token)
{
    std::string upper(token);
    for (char& letter : upper) {
        if (letter >= 'a' && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
    }
    return upper;
}

void addToken(Shortcut& shortcut, const std::string& token)
{
    for (const Modifier& modifier : Modifiers) {
        if (token == modifier.token) {
            shortcut.modifiers |= modifier.bits;
            return;
        }
    }
    shortcut.key = SDL_GetKeyFromName(token.c_str());
}

} // namespace

Shortcut Shortcut::parse(std::string_view text)
{
    Shortcut shortcut;
    std::size_t start = text.find_first_not_of(Separators);
    while (start != std::string_view::npos) {
        const std::size_t end = text.find_first_of(Separators, start);
        addToken(shortcut, inUpperCase(text.substr(start, end - start)));
        start = text.find_first_not_of(Separators, end);
    }
    return shortcut;
}

bool Shortcut::matches(std::int32_t pressedKey, std::uint32_t pressedModifiers) const
{
    if (key == 0 || pressedKey != key)
        return false;
    for (const Modifier& modifier : Modifiers) {
        const std::uint32_t own = modifiers & modifier.bits;
        const std::uint32_t pressed = pressedModifiers & modifier.bits;
        if ((own != 0) != (pressed != 0))
            return false;
    }
    return true;
}

std::string Shortcut::displayText() const
{
    if (key == 0)
        return {};
    std::string text;
    for (const Modifier& modifier : Modifiers) {
        if ((modifiers & modifier.bits) != 0)
            text += modifier.shown;
    }
    text += '+';
    text += SDL_GetKeyName(key);
    return text.substr(1);
}

} // namespace nui
