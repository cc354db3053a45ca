#include "misc/shell.h"

#include "misc/file_system.h"
#include "support/file_content.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace nrd::misc {

namespace {

TEST(shell, a_link_is_made_with_its_folder)
{
    const test::temp_folder folder;
    const text32 location = to_text32(folder / "Start Menu\\\u0416\\App 5.0");
    EXPECT_EQ(create_shortcut(location, U"C:\\Program Files\\App\\app.exe"), location + U".lnk");
    EXPECT_GT(file_size(to_path(std::u32string_view(location + U".lnk"))), 0U);
    EXPECT_EQ(create_shortcut(location, U"C:\\other.exe"), location + U".lnk");
}

TEST(shell, a_link_that_cannot_be_saved_gives_no_path)
{
    const test::temp_folder folder;
    test::write_file(folder / "file", "x");
    EXPECT_EQ(create_shortcut(to_text32(folder / "file\\link"), U"C:\\app.exe"), U"");
    EXPECT_EQ(test::read_file(folder / "file"), "x");
}

} // namespace

} // namespace nrd::misc
