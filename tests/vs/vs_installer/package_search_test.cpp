#include "vs/vs_installer/package_search.h"

#include "misc/file_system.h"
#include "support/file_content.h"
#include "support/log_capture.h"
#include "support/temp_folder.h"

#include <boost/filesystem/operations.hpp>
#include <gtest/gtest.h>

namespace nrd::vs_installer {
namespace {

class package_search : public testing::Test {
protected:
    void file(std::string_view name) { test::write_file(root_ / name, ""); }

    /// What is found, each with a blank behind.
    std::string found()
    {
        std::string text;
        for (const misc::path& each : find_install_xmls(root_.path())) {
            text += root_.plain(misc::to_utf8(each)) + " ";
        }
        return text;
    }

    test::temp_folder root_;
};

TEST_F(package_search, takes_the_first_folder_of_each_numbered_one_up_to_the_first_gap)
{
    for (const char* const name :
         {"0\\a.txt", "0\\B\\other.xml", "0\\d\\install.xml", "0\\c\\Install.XML",
          "1\\x\\install.xml", "3\\x\\install.xml", "02\\x\\install.xml", "x\\x\\install.xml"}) {
        file(name);
    }
    const test::log_capture log;
    EXPECT_EQ(found(), "T:\\0\\c\\install.xml T:\\1\\x\\install.xml ");
    EXPECT_EQ(root_.plain(log.text()), "Searching T:\\0 for install.xml\nSearching children.\n"
                                       "install.xml found at: T:\\0\\c\\install.xml\n"
                                       "Searching T:\\1 for install.xml\nSearching children.\n"
                                       "install.xml found at: T:\\1\\x\\install.xml\n"
                                       "Searching T:\\2 for install.xml\ninstall.xml not found\n");
}

TEST_F(package_search, a_numbered_folder_without_a_hit_ends_it)
{
    file("0\\x\\install.xml");
    file("1\\install.xml"); // not seen
    file("1\\x\\deeper\\install.xml");
    file("2\\x\\install.xml");
    const test::log_capture log;
    EXPECT_EQ(found(), "T:\\0\\x\\install.xml ");
    EXPECT_TRUE(log.text().ends_with("Searching children.\ninstall.xml not found\n"));
}

TEST_F(package_search, a_file_in_place_of_a_numbered_folder_throws)
{
    file("0");
    EXPECT_THROW(found(), misc::filesystem_error);
}

TEST_F(package_search, no_more_than_999_numbered_folders_are_looked_at)
{
    const boost::filesystem::path top = misc::to_host(root_.path());
    for (int i = 0; i < 1000; ++i) {
        boost::filesystem::create_directories(top / std::to_string(i) / "x" / "install.xml");
    }
    const std::vector<misc::path> all = find_install_xmls(root_.path());
    ASSERT_EQ(all.size(), 999U);
    EXPECT_EQ(all.back(), root_ / "998\\x\\install.xml");
}

} // namespace
} // namespace nrd::vs_installer
