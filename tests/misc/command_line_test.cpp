#include "misc/command_line.h"

#include "misc/known_folders.h"

#include <gtest/gtest.h>

namespace nrd::misc {

namespace {

class command_line : public testing::Test {
protected:
    command_line() { clear(); }
    ~command_line() override { clear(); }

    static void clear()
    {
        desktop_override().reset();
        prefs_override().reset();
        lang_override().reset();
    }

    /// What the words set, as "desktop prefs lang"; "-" where nothing is set.
    static std::string parsed(const std::vector<std::string>& words)
    {
        clear();
        parse_command_line(words);
        const auto text = [](const auto& value, auto to_text) {
            return value ? "'" + to_text(*value) + "'" : std::string("-");
        };
        const auto of_path = [](const path& p) { return to_utf8(p); };
        return text(desktop_override(), of_path) + " " + text(prefs_override(), of_path) + " " +
               text(lang_override(), [](const std::string& each) { return each; });
    }
};

TEST_F(command_line, options_are_looked_for_at_every_word_but_the_last)
{
    EXPECT_EQ(parsed({}), "- - -");
    EXPECT_EQ(parsed({"setup.exe"}), "- - -");
    EXPECT_EQ(parsed({"setup.exe", "--lang"}), "- - -");
    EXPECT_EQ(parsed({"setup.exe", "x", "--lang", "de", "--other", "--desktop", "D:\\\u0416"}),
              "'D:\\\u0416' - 'de'");
    EXPECT_EQ(parsed({"setup.exe", "--lang", "--prefs", "x"}), "- 'x' '--prefs'");
    EXPECT_EQ(parsed({"setup.exe", "--prefs", "--prefs", "--prefs"}), "- '--prefs' -");
    EXPECT_EQ(parsed({"setup.exe", "--lang", "de", "--lang", "fr"}), "- - 'fr'");
    EXPECT_EQ(parsed({"setup.exe", "--prefs", ""}), "- '' -");
    EXPECT_EQ(parsed({"--lang", "de"}), "- - 'de'");
}

TEST_F(command_line, two_folders_follow_the_options)
{
    const std::string roaming = to_utf8(get_roaming_folder());
    const std::string desktop = to_utf8(get_desktop_folder());
    EXPECT_EQ(to_utf8(get_settings_folder()), roaming);
    parse_command_line({"setup.exe", "--prefs", "E:\\p", "--desktop", "E:\\d"});
    EXPECT_EQ(to_utf8(get_settings_folder()), "E:\\p");
    EXPECT_EQ(to_utf8(get_desktop_folder()), "E:\\d");
    EXPECT_EQ(to_utf8(get_roaming_folder()), roaming);
    EXPECT_NE(desktop, "E:\\d");
    parse_command_line({"setup.exe", "--prefs", ""});
    EXPECT_TRUE(get_settings_folder().empty());
}

TEST(known_folders, are_absolute_and_end_in_a_name)
{
    std::string names;
    for (const path& folder :
         {get_roaming_folder(), get_local_folder(), get_desktop_folder(), get_documents_folder(),
          get_program_data_folder(), get_fonts_folder(), get_common_programs_folder(),
          get_system_folder(), get_windows_folder()}) {
        EXPECT_TRUE(folder.is_absolute()) << to_utf8(folder);
        names += to_utf8(name_key(to_utf16(to_text32(folder.filename())))) + " ";
    }
    EXPECT_EQ(names,
              "ROAMING LOCAL DESKTOP DOCUMENTS PROGRAMDATA FONTS PROGRAMS SYSTEM32 WINDOWS ");
}

} // namespace

} // namespace nrd::misc
