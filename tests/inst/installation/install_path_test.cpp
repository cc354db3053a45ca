#include "inst/installation/install_path.h"

#include "misc/known_folders.h"

#include <gtest/gtest.h>

namespace nrd::installation {
namespace {

misc::path changed(const misc::path& folder, char32_t (*change)(char32_t), std::u32string_view end)
{
    misc::text32 text = misc::to_text32(folder);
    for (char32_t& c : text) {
        c = change(c);
    }
    return misc::to_path(std::u32string_view(text.append(end)));
}

char32_t lower(char32_t c)
{
    return c >= U'A' && c <= U'Z' ? c - U'A' + U'a' : c;
}
char32_t slash(char32_t c)
{
    return c == U'\\' ? U'/' : c;
}
char32_t same(char32_t c)
{
    return c;
}

TEST(install_path, tops_of_drives_and_the_systems_own_folders_are_refused)
{
    for (const char* const refused : {"", "C:\\", "C:", "D:/", "\\", "\\\\server\\"}) {
        EXPECT_FALSE(is_valid_install_path(refused)) << refused;
    }
    for (const char* const taken : {"C:\\App", "C:App", "\\App", "App", "\\\\server\\share"}) {
        EXPECT_TRUE(is_valid_install_path(taken)) << taken;
    }
    for (const misc::path& folder : {misc::get_windows_folder(), misc::get_program_files_folder(),
                                     misc::get_system_folder()}) {
        EXPECT_FALSE(is_valid_install_path(folder)) << misc::to_utf8(folder);
        EXPECT_FALSE(is_valid_install_path(changed(folder, slash, U"")));
        EXPECT_TRUE(is_valid_install_path(folder / "App"));
        // Paths are compared as they are written.
        EXPECT_TRUE(is_valid_install_path(changed(folder, same, U"\\")));
        EXPECT_TRUE(is_valid_install_path(changed(folder, lower, U"")));
    }
}

TEST(install_path, separators_become_single_backslashes)
{
    EXPECT_EQ(normalise_install_path(U"C:/a//b\\\\\\c/"), U"C:\\a\\b\\c\\");
    EXPECT_EQ(normalise_install_path(U"\\\\server\\share"), U"\\server\\share");
    EXPECT_EQ(normalise_install_path(U""), U"");
}

} // namespace
} // namespace nrd::installation
