#include "inst/installation/install_path.h"

#include "misc/known_folders.h"

#include <gtest/gtest.h>

namespace nrd::installation {
namespace {

TEST(install_path, tops_of_drives_and_the_systems_own_folders_are_refused)
{
    for (const char* const refused : {"", "C:\\", "C:", "D:/", "\\", "/", "\\\\server\\"}) {
        EXPECT_FALSE(is_valid_install_path(refused)) << refused;
    }
    for (const char* const taken : {"C:\\App", "C:App", "\\App", "App", "\\\\server\\share"}) {
        EXPECT_TRUE(is_valid_install_path(taken)) << taken;
    }
    for (const misc::path& folder : {misc::get_windows_folder(), misc::get_program_files_folder(),
                                     misc::get_system_folder()}) {
        EXPECT_FALSE(is_valid_install_path(folder)) << misc::to_utf8(folder);
        const misc::text32 text = misc::to_text32(folder);
        const misc::text32 slashes = misc::replace_char(text, U'\\', U'/');
        EXPECT_FALSE(is_valid_install_path(misc::to_path(std::u32string_view(slashes))));
        EXPECT_TRUE(is_valid_install_path(folder / "App"));
        // Paths are compared as they are written.
        misc::text32 lower = text;
        misc::to_lower(lower);
        EXPECT_TRUE(is_valid_install_path(misc::to_path(std::u32string_view(lower))));
        EXPECT_TRUE(is_valid_install_path(misc::to_path(std::u32string_view(text + U"\\"))));
    }
}

} // namespace
} // namespace nrd::installation
