#include "nui/menus/shortcut.h"

#include <SDL.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using nui::Shortcut;

class shortcut_test : public testing::Test {
protected:
    // Keys that stand for no letter have a name only then.
    shortcut_test() { SDL_InitSubSystem(SDL_INIT_VIDEO); }
    ~shortcut_test() override { SDL_QuitSubSystem(SDL_INIT_VIDEO); }
};

TEST_F(shortcut_test, a_text_gives_bits_of_both_sides_and_sdls_key)
{
    struct {
        const char* text;
        std::int32_t key;
        std::uint32_t modifiers;
        const char* shown;
    } const cases[] = {
        {"Ctrl+Shift+S", SDLK_s, 0xC3, "Ctrl+Shift+S"},
        {"shift-alt-ctrl x", SDLK_x, 0x1C3, "Ctrl+Shift+Alt+X"},
        {"AltGr + Command + F5", SDLK_F5, 0xE00, "AltGr+Command+F5"},
        {"delete", SDLK_DELETE, 0, "Delete"},
        {"Alt+Return", SDLK_RETURN, 0x100, "Alt+Return"},
        {"a b", SDLK_b, 0, "B"},
        {"Ctrl+NoSuchKey", 0, 0xC0, ""},
        {"", 0, 0, ""},
    };
    for (const auto& [text, key, modifiers, shown] : cases) {
        const Shortcut shortcut = Shortcut::parse(text);
        EXPECT_EQ(shortcut.key, key) << text;
        EXPECT_EQ(shortcut.modifiers, modifiers) << text;
        EXPECT_EQ(shortcut.displayText(), shown);
    }
}

TEST_F(shortcut_test, either_side_counts_for_ctrl_shift_and_command_but_alt_and_alt_gr_differ)
{
    struct {
        const char* text;
        std::uint32_t pressed;
        bool matches;
    } const cases[] = {
        {"Ctrl+S", KMOD_LCTRL, true},
        {"Ctrl+S", KMOD_RCTRL, true},
        {"Ctrl+S", KMOD_LCTRL | KMOD_RCTRL | KMOD_NUM | KMOD_CAPS, true},
        {"Ctrl+S", 0, false},
        {"Ctrl+S", KMOD_LCTRL | KMOD_LSHIFT, false},
        {"S", KMOD_RCTRL, false},
        {"Shift+S", KMOD_RSHIFT, true},
        {"Command+S", KMOD_RGUI, true},
        {"Command+S", KMOD_LCTRL, false},
        {"Alt+S", KMOD_LALT, true},
        {"Alt+S", KMOD_RALT, false},
        {"AltGr+S", KMOD_RALT, true},
        {"AltGr+S", KMOD_LALT, false},
        {"Alt+S", KMOD_LALT | KMOD_RALT, false},
    };
    for (const auto& [text, pressed, matches] : cases)
        EXPECT_EQ(Shortcut::parse(text).matches(SDLK_s, pressed), matches) << text << pressed;
    EXPECT_FALSE(Shortcut::parse("Ctrl+S").matches(SDLK_a, KMOD_LCTRL));
    EXPECT_FALSE(Shortcut().matches(0, 0));
}

} // namespace
