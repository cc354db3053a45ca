#include "tools/nui_preview/play_script.h"

#include <SDL2/SDL_keyboard.h>
#include <SDL2/SDL_mouse.h>
#include <algorithm>
#include <charconv>
#include <optional>

namespace nrd::tools::preview {

namespace {

constexpr std::string_view blanks = " \t\r";
constexpr double longest_wait = 86400;

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Takes the first word off the text, and the blanks behind it.
std::string_view take_word(std::string_view& text)
{
    const std::size_t end = std::min(text.find_first_of(blanks), text.size());
    const std::string_view word = text.substr(0, end);
    text = trimmed(text.substr(end));
    return word;
}

template <class Number> std::optional<Number> number_of(std::string_view text)
{
    Number value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end && !text.empty() ? std::optional(value)
                                                                : std::nullopt;
}

/// Reads the words behind a command; its line is what a fault is told with.
class argument_reader {
public:
    argument_reader(int line, std::string_view command, std::string_view rest)
        : line_(line), command_(command), rest_(rest)
    {
    }

    [[noreturn]] void fail(const std::string& sentence) const
    {
        throw script_error(line_, sentence);
    }

    std::string text(const char* what) const
    {
        if (rest_.empty()) {
            fail("The command " + command_ + " needs " + what + ".");
        }
        return std::string(rest_);
    }

    template <class Number> Number number(const char* what)
    {
        const std::string_view word = take_word(rest_);
        const std::optional<Number> value = number_of<Number>(word);
        if (!value) {
            fail("The command " + command_ + " needs " + what +
                 (word.empty() ? "." : ", and \"" + std::string(word) + "\" is none."));
        }
        return *value;
    }

    void end() const
    {
        if (!rest_.empty()) {
            fail("The command " + command_ + " ends before \"" + std::string(rest_) + "\".");
        }
    }

    std::uint8_t button()
    {
        const std::string_view word = take_word(rest_);
        end();
        if (word.empty() || word == "left") {
            return SDL_BUTTON_LEFT;
        }
        if (word == "middle") {
            return SDL_BUTTON_MIDDLE;
        }
        if (word == "right") {
            return SDL_BUTTON_RIGHT;
        }
        fail("There is no button \"" + std::string(word) + "\": left, right and middle are known.");
    }

    hit_key key()
    {
        hit_key key;
        // Names of keys have blanks of their own, so the modifiers are taken off the end.
        while (const std::uint16_t modifier = take_modifier()) {
            key.modifiers = static_cast<std::uint16_t>(key.modifiers | modifier);
        }
        const std::string name = text("the name of a key");
        key.key = SDL_GetKeyFromName(name.c_str());
        if (key.key == SDLK_UNKNOWN) {
            fail("There is no key \"" + name + "\".");
        }
        return key;
    }

private:
    /// 0 if the last word is none, or the only one.
    std::uint16_t take_modifier()
    {
        const std::size_t blank = rest_.find_last_of(blanks);
        if (blank == std::string_view::npos) {
            return 0;
        }
        const std::string_view word = rest_.substr(blank + 1);
        const SDL_Keymod modifier = word == "ctrl"    ? KMOD_LCTRL
                                    : word == "shift" ? KMOD_LSHIFT
                                    : word == "alt"   ? KMOD_LALT
                                                      : KMOD_NONE;
        if (modifier != KMOD_NONE) {
            rest_ = trimmed(rest_.substr(0, blank));
        }
        return static_cast<std::uint16_t>(modifier);
    }

    int line_;
    std::string command_;
    std::string_view rest_;
};

play_action move_action(argument_reader& arguments)
{
    const int x = arguments.number<int>("two whole numbers, X and Y");
    const int y = arguments.number<int>("two whole numbers, X and Y");
    arguments.end();
    return move_pointer{x, y};
}

play_action wheel_action(argument_reader& arguments)
{
    const int notches = arguments.number<int>("a whole number");
    arguments.end();
    return turn_wheel{notches};
}

play_action wait_action(argument_reader& arguments)
{
    const auto seconds = arguments.number<double>("a number of seconds");
    arguments.end();
    if (!(seconds >= 0 && seconds <= longest_wait)) {
        arguments.fail("The time to wait is not between no time and a day.");
    }
    return wait_for{seconds};
}

play_action quit_action(argument_reader& arguments)
{
    arguments.end();
    return quit_playing{};
}

struct command_kind {
    std::string_view name;
    play_action (*read)(argument_reader& arguments);
};

// "type" is not among them: its text is not to be trimmed.
constexpr command_kind command_kinds[] = {
    {"move", move_action},
    {"press", [](argument_reader& a) -> play_action { return press_button{a.button()}; }},
    {"release", [](argument_reader& a) -> play_action { return release_button{a.button()}; }},
    {"click",
     [](argument_reader& a) -> play_action { return click_widget{a.text("a widget's name")}; }},
    {"wheel", wheel_action},
    {"key", [](argument_reader& a) -> play_action { return a.key(); }},
    {"focus",
     [](argument_reader& a) -> play_action { return focus_widget{a.text("a widget's name")}; }},
    {"wait", wait_action},
    {"show", [](argument_reader& a) -> play_action { return show_page{a.text("a page's name")}; }},
    {"tree",
     [](argument_reader& a) -> play_action { return write_tree_file{a.text("a file's name")}; }},
    {"png",
     [](argument_reader& a) -> play_action { return write_picture_file{a.text("a file's name")}; }},
    {"quit", quit_action}};

/// Everything behind the one blank that follows the command, blanks included.
play_action type_action(int line, std::string_view rest)
{
    if (rest.size() < 2) {
        throw script_error(line, "The command type needs a text.");
    }
    return type_text{std::string(rest.substr(1))};
}

play_action parse_line(int number, std::string_view line)
{
    std::string_view rest = trimmed(line);
    const std::string_view name = take_word(rest);
    if (name == "type") {
        const std::size_t start = line.find(name) + name.size();
        return type_action(number, line.substr(start));
    }
    for (const command_kind& kind : command_kinds) {
        if (kind.name == name) {
            argument_reader arguments(number, name, rest);
            return kind.read(arguments);
        }
    }
    throw script_error(number, "The command \"" + std::string(name) + "\" is not known.");
}

} // namespace

std::vector<play_command> parse_play_script(std::string_view text)
{
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (text.starts_with(byte_order_mark)) {
        text.remove_prefix(byte_order_mark.size());
    }
    std::vector<play_command> commands;
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        const std::string_view said = trimmed(line);
        if (!said.empty() && !said.starts_with('#')) {
            commands.push_back({number, parse_line(number, line)});
        }
    }
    return commands;
}

} // namespace nrd::tools::preview
