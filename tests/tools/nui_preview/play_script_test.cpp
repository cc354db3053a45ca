#include "tools/nui_preview/play_script.h"

#include <SDL2/SDL_keycode.h>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using namespace nrd::tools::preview;

/// One word a kind, with all that the command holds.
struct printer {
    std::ostream& out;

    void operator()(const move_pointer& a) const { out << "move " << a.x << "," << a.y; }
    void operator()(const press_button& a) const { out << "press " << int{a.button}; }
    void operator()(const release_button& a) const { out << "release " << int{a.button}; }
    void operator()(const click_widget& a) const { out << "click [" << a.name << "]"; }
    void operator()(const turn_wheel& a) const { out << "wheel " << a.notches; }
    void operator()(const type_text& a) const { out << "type [" << a.text << "]"; }
    void operator()(const hit_key& a) const { out << "key " << a.key << "+" << a.modifiers; }
    void operator()(const focus_widget& a) const { out << "focus [" << a.name << "]"; }
    void operator()(const wait_for& a) const { out << "wait " << a.seconds; }
    void operator()(const show_page& a) const { out << "show [" << a.name << "]"; }
    void operator()(const write_tree_file& a) const { out << "tree [" << a.file << "]"; }
    void operator()(const write_picture_file& a) const { out << "png [" << a.file << "]"; }
    void operator()(const quit_playing&) const { out << "quit"; }
};

std::string parsed(std::string_view script)
{
    std::ostringstream out;
    try {
        for (const play_command& command : parse_play_script(script)) {
            out << command.line << " ";
            std::visit(printer{out}, command.action);
            out << "\n";
        }
    } catch (const script_error& error) {
        out << "line " << error.line << ": " << error.what();
    }
    return out.str();
}

TEST(play_script_test, each_command_is_read_with_its_arguments)
{
    EXPECT_EQ(parsed("move 10 -20\npress\npress right\nrelease middle\nrelease left\n"
                     "click ok_button\nwheel -3\nfocus a name\nwait 0.25\nshow end_main\n"
                     "tree out/a b.json\npng x.png\nquit\n"),
              "1 move 10,-20\n2 press 1\n3 press 3\n4 release 2\n5 release 1\n"
              "6 click [ok_button]\n7 wheel -3\n8 focus [a name]\n9 wait 0.25\n"
              "10 show [end_main]\n11 tree [out/a b.json]\n12 png [x.png]\n13 quit\n");
}

TEST(play_script_test, lines_count_also_where_they_say_nothing)
{
    EXPECT_EQ(parsed("\xEF\xBB\xBF# remark\r\n\r\n  \t\r\n   quit  \r\n# quit"), "4 quit\n");
    EXPECT_EQ(parsed(""), "");
}

TEST(play_script_test, a_typed_text_keeps_its_blanks)
{
    EXPECT_EQ(parsed("type a  b \r\n  type  type\ntype \xE5\x88\x87\n"),
              "1 type [a  b ]\n2 type [ type]\n3 type [\xE5\x88\x87]\n");
}

TEST(play_script_test, keys_have_the_names_of_sdl_and_modifiers_behind_them)
{
    std::ostringstream expected;
    expected << "1 key " << SDLK_RETURN << "+0\n"
             << "2 key " << SDLK_TAB << "+" << KMOD_LSHIFT << "\n"
             << "3 key " << SDLK_a << "+" << (KMOD_LCTRL | KMOD_LSHIFT | KMOD_LALT) << "\n"
             << "4 key " << SDLK_KP_ENTER << "+" << KMOD_LALT << "\n"
             << "5 key " << SDLK_LCTRL << "+0\n";
    EXPECT_EQ(parsed("key Return\nkey Tab shift\nkey a ctrl  alt shift\nkey Keypad Enter alt\n"
                     "key Left Ctrl\n"),
              expected.str());
}

TEST(play_script_test, the_first_faulty_line_is_told)
{
    const struct {
        const char* script;
        const char* told;
    } cases[] = {
        {"quit\n\nfly 3", "line 3: The command \"fly\" is not known."},
        {"move 3", "line 1: The command move needs two whole numbers, X and Y."},
        {"move 3 4.5",
         "line 1: The command move needs two whole numbers, X and Y, and \"4.5\" is none."},
        {"move 3 4 5", "line 1: The command move ends before \"5\"."},
        {"press side", "line 1: There is no button \"side\": left, right and middle are known."},
        {"press left right", "line 1: The command press ends before \"right\"."},
        {"click", "line 1: The command click needs a widget's name."},
        {"wheel up", "line 1: The command wheel needs a whole number, and \"up\" is none."},
        {"type ", "line 1: The command type needs a text."},
        {"key", "line 1: The command key needs the name of a key."},
        {"key ctrl", "line 1: There is no key \"ctrl\"."},
        {"wait -1", "line 1: The time to wait is not between no time and a day."},
        {"wait nan", "line 1: The time to wait is not between no time and a day."},
        {"wait soon", "line 1: The command wait needs a number of seconds, and \"soon\" is none."},
        {"tree", "line 1: The command tree needs a file's name."},
        {"quit now", "line 1: The command quit ends before \"now\"."},
    };
    for (const auto& [script, told] : cases) {
        EXPECT_EQ(parsed(script), told) << script;
    }
}

} // namespace
