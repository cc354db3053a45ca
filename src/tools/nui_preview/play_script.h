#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace nrd::tools::preview {

// The commands of a play script. Positions are window pixels, NAMEs are those of widgets.
struct move_pointer {
    int x = 0;
    int y = 0;
};
struct press_button {
    std::uint8_t button = 0; ///< SDL's number
};
struct release_button {
    std::uint8_t button = 0;
};
struct click_widget {
    std::string name;
};
struct turn_wheel {
    int notches = 0; ///< positive away from the user
};
struct type_text {
    std::string text; ///< UTF-8
};
struct hit_key {
    std::int32_t key = 0;        ///< SDL_Keycode
    std::uint16_t modifiers = 0; ///< SDL_Keymod
};
struct focus_widget {
    std::string name;
};
struct wait_for {
    double seconds = 0;
};
struct show_page {
    std::string name;
};
struct write_tree_file {
    std::string file;
};
struct write_picture_file {
    std::string file;
};
struct quit_playing {};

using play_action = std::variant<move_pointer, press_button, release_button, click_widget,
                                 turn_wheel, type_text, hit_key, focus_widget, wait_for, show_page,
                                 write_tree_file, write_picture_file, quit_playing>;

struct play_command {
    int line = 0; ///< from 1
    play_action action;
};

/// A fault of the script; the text is a sentence without the place.
struct script_error : std::runtime_error {
    script_error(int at_line, const std::string& sentence)
        : std::runtime_error(sentence), line(at_line)
    {
    }

    int line;
};

/// One command a line, UTF-8; empty lines and those that begin with "#" say nothing. Throws
/// script_error for the first faulty line.
[[nodiscard]] std::vector<play_command> parse_play_script(std::string_view text);

} // namespace nrd::tools::preview
