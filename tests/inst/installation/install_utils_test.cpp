#include "inst/installation/install_utils.h"

#include "misc/file_system.h"
#include "misc/registry.h"
#include "support/denied_key.h"
#include "support/file_content.h"
#include "support/log_capture.h"
#include "support/registry_text.h"
#include "support/running_program.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace nrd::installation {
namespace {

using test::log_capture;

class installed_program : public testing::Test {
protected:
    installed_program() { s_.vars = {{U"APP_NAME", U"VS5/${X} test"}, {U"X", U"1"}}; }
    ~installed_program() override { misc::delete_key(key_); }

    spec s_;
    misc::text32 key_ = misc::uninstall_key(U"VS5/${X} test"); // the name is not expanded
};

TEST_F(installed_program, is_installed_if_the_system_lists_it_whatever_the_key_holds)
{
    const std::string asked = "Checking for install.\nWindows: VS5/${X} test\n";
    {
        const log_capture log;
        EXPECT_FALSE(is_installed(s_));
        EXPECT_EQ(install_location(s_), U"");
        EXPECT_EQ(log.text(), asked + "Reg key not found.\n" + asked + "Reg key not found.\n");
    }
    misc::create_key(key_);
    {
        const log_capture log;
        EXPECT_TRUE(is_installed(s_));
        EXPECT_EQ(log.text(), asked + "Reg key found: already installed.\n");
    }
    EXPECT_EQ(install_location(s_), U"");
    misc::set_string_value(key_, U"InstallLocation", U"\"C:\\App\\\"");
    EXPECT_EQ(install_location(s_), U"\"C:\\App\\\"");
    const test::denied_key denied(U"HKEY_LOCAL_MACHINE\\" + key_);
    EXPECT_THROW(is_installed(s_), misc::registry_error);
}

TEST(count_files, counts_what_packages_for_the_system_bring_unexpanded)
{
    const test::temp_folder folder;
    for (const char* const name : {"one.txt", "tree\\a", "tree\\sub\\b", "tree\\sub\\deep\\c"}) {
        test::write_file(folder / name, name);
    }
    misc::create_directories(folder / "tree\\empty");
    const misc::scoped_current_path here(folder.path());
    const auto pack = [](const char* os, const char* bits, const std::vector<text32>& sources) {
        package result{"", os, bits, {}};
        for (const text32& in : sources) {
            result.filesets.emplace_back(in, U"", U"");
        }
        return result;
    };
    const std::vector<package> packages = {
        pack("win", "64", {U"tree", U"one.txt", U"missing", U"${X}"}),
        pack("all", "32", {U"one.txt", U""}),
        pack("mac", "all", {U"one.txt"}),
        pack("", "all", {U"one.txt"}),
    };
    const log_capture log;
    EXPECT_EQ(count_files(packages, "win"), 5U);
    EXPECT_EQ(count_packages_and_filesets(packages, "win"),
              (std::pair<std::size_t, std::size_t>(2, 6)));
    EXPECT_EQ(log.text(), "Counting files.\nFiles: 5\n"
                          "Counting packages & filesets\nPackages: 2, Filesets: 6\n");
    EXPECT_EQ(count_files(packages, "mac"), 2U);
}

TEST(blocker_processes, names_running_programs_that_block_this_system_once_for_each_spec)
{
    const test::temp_folder folder;
    const test::running_program running(folder / "vs5 blocker.exe");
    spec first;
    first.block_processes = {{"vs5 blocker", "win"},
                             {"vs5 blocker.exe", "all"},
                             {"vs5 blocker.exe", "mac"},
                             {"vs5 blocker.exe", ""},
                             {"vs5 no such program.exe", "win"}};
    spec second;
    second.block_processes = {{"vs5 blocker", "win"}};
    const log_capture log;
    EXPECT_EQ(blocker_processes({first, second}),
              (std::vector<std::string>{"vs5 blocker", "vs5 blocker.exe", "vs5 blocker"}));
    EXPECT_EQ(log.text(), "Finding blocker processes list.\nFound: vs5 blocker\n"
                          "Found: vs5 blocker.exe\nFound: vs5 blocker\n");
}

TEST(delete_reg_key, removes_the_value_or_for_an_empty_name_the_key)
{
    const test::scratch_key top;
    misc::create_key(top / U"Sub\\Deep");
    misc::create_key(top / U"${X}");
    misc::set_string_value(top / U"Sub", U"a", U"1");
    misc::set_string_value(top / U"Sub", U"b", U"2");
    misc::set_string_value(top / U"${X}", U"c", U"3");
    const log_capture log;
    delete_reg_key({top / U"Sub", "a", U"", {}});
    delete_reg_key({top / U"Sub", "a", U"", {}});
    delete_reg_key({top / U"Missing", "", U"", {}});
    EXPECT_EQ(test::registry_text(top.path()), "[${X}]\nc = 3\n[Sub]\nb = 2\n[Sub\\Deep]\n");
    delete_reg_key({top / U"Sub", "", U"", {}});
    delete_reg_key(
        {top / U"${X}", "c", U"", {}}); // the path is not expanded; nothing is left in it
    EXPECT_EQ(test::registry_text(top.path()), "");
    const std::string path = misc::to_utf8(top.path());
    EXPECT_EQ(log.text(), "Deleting reg key vale: a, " + path + "\\Sub\nDeleting reg key: \n" +
                              "Deleting reg key vale: c, " + path + "\\${X}\n");
}

} // namespace
} // namespace nrd::installation
