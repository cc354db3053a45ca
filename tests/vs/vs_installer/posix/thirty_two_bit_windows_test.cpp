#include "misc/file_system.h"
#include "support/posix/scratch_machine.h"
#include "support/spec_text.h"
#include "vs/vs_installer/host_machine.h"
#include "vs/vs_installer/hosts.h"
#include "vs/vs_installer/locations.h"

#include <gtest/gtest.h>

namespace nrd::vs_installer {
namespace {

/// Its machine is there before anything is put on it.
class has_machine {
protected:
    test::scratch_machine machine_{R"({"bits": 32})"};
};

class thirty_two_bit_windows : private has_machine, public host_machine {};

TEST_F(thirty_two_bit_windows, lists_every_host_of_the_registry_twice)
{
    value("Corel\\Setup\\CorelDRAW Graphics Suite X8", "Destination", "C:\\Corel\\");
    listed("1", "Adobe Illustrator CS6", folder_ / "CS6");
    illustrator(folder_ / "CS6", 32);
    illustrator("C:\\Program Files\\Adobe\\Adobe Illustrator CS5", 32);
    illustrator("C:\\Program Files (x86)\\Adobe\\Adobe Illustrator CS4", 32);
    std::string names;
    for (const std::vector<host_app>& list : {find_corel_hosts(), find_adobe_hosts(true)}) {
        for (const host_app& each : list) {
            names += misc::to_utf8(each.name) + "\n";
        }
    }
    EXPECT_EQ(names, "CorelDRAW Graphics Suite X8\nCorelDRAW Graphics Suite X8\n"
                     "Adobe Illustrator CS6\nAdobe Illustrator CS6\nAdobe Illustrator CS5\n");
}

TEST_F(thirty_two_bit_windows, has_no_64_bit_packages_folders_or_keys)
{
    value("Corel\\Setup\\CorelDRAW Graphics Suite X8", "Destination", "C:\\Corel\\");
    installation::spec s;
    s.vars = {{U"APP_NAME", U"App"}, {U"INSTALLER_CODE", U"VS5"}, s.vars[0]};
    s.packages = {{"zero", "win", "64", {}},
                  {"one", "win", "64", {}},
                  {"two", "win", "32", {{U"in", U"${CorelDRAW Graphics Suite X8 32}x", U""}}}};
    EXPECT_TRUE(configure_install_locations(s));
    const std::string text = test::spec_text(s);
    EXPECT_EQ(text.substr(text.find("var COREL"), text.find("key ") - text.find("var COREL")),
              "var COREL_DLL_INSTALL_PATH_32 = C:\\Windows\\System32\n"
              "var CorelDRAW Graphics Suite X8 32 = C:\\Corel\\\n"
              "package two (win, 32)\n  in -> ${CorelDRAW Graphics Suite X8 32}x\n");
    EXPECT_EQ(s.reg_keys.size(), 3U);
    s.packages.resize(1);
    EXPECT_THROW(configure_install_locations(s), std::out_of_range);
}

} // namespace
} // namespace nrd::vs_installer
