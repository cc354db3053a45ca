#include "vs/vs_installer/startup.h"

#include "misc/command_line.h"
#include "misc/predicate_table.h"
#include "streams/streams.h"
#include "support/log_capture.h"
#include "support/package_builder.h"
#include "support/spec_text.h"
#include "support/temp_folder.h"

#include <SDL2/SDL.h>
#include <gtest/gtest.h>

namespace nrd::vs_installer {
namespace {

using misc::to_utf8;

/// A package with a program in it, and a start-up whose traces in the process are taken away.
class start_up : public testing::Test {
protected:
    start_up() { begun_.exe_path = folder_ / "package\\installer\\windows\\x86\\setup.exe"; }

    ~start_up() override
    {
        streams::set_stream_file("installer", false);
        misc::predicate_table().clear();
        misc::desktop_override().reset();
        misc::prefs_override().reset();
        SDL_Quit();
    }

    test::package_builder package(std::string_view name)
    {
        return test::package_builder(folder_ / "package" / misc::to_path(name));
    }

    test::temp_folder folder_;
    test::log_capture log_;
    startup begun_{{"setup.exe", "--desktop", to_utf8(folder_ / "desk"), "--prefs",
                    to_utf8(folder_ / "prefs")}};
};

TEST_F(start_up, goes_its_steps_in_order_up_to_complete_specs)
{
    package("0\\first")
        .var("APP_NAME", "App")
        .var("INSTALLER_CODE", "other")
        .var("DESKTOP", "the package's own")
        .write();
    package("1\\faulty").add("vars", "<var").write();
    EXPECT_EQ(begun_.run(), startup_result::ready);

    const std::string text = folder_.plain(log_.text());
    const std::string last = "Importing T:\\package\\0\\first\\install.xml\n";
    EXPECT_EQ(text.substr(0, text.find(last) + last.size()),
              "Starting VS5 install.\n"
              "T:\\prefs\\Tavrolen Corporation\\log\\installer created\n"
              "T:\\prefs\\Tavrolen Corporation\\Velmora Studio 5 created\n"
              "T:\\prefs\\Tavrolen Corporation\\shared created\n"
              "Command line args:\n"
              "setup.exe\n--desktop\nT:\\desk\n--prefs\nT:\\prefs\n"
              "SDL init.\n"
              "Data dir: T:\\package\\installer\\windows\\x86\\resources\n"
              "Package root: T:\\package\n"
              "Searching T:\\package\\0 for install.xml\n"
              "Searching children.\n"
              "install.xml found at: T:\\package\\0\\first\\install.xml\n"
              "Searching T:\\package\\1 for install.xml\n"
              "Searching children.\n"
              "install.xml found at: T:\\package\\1\\faulty\\install.xml\n"
              "Searching T:\\package\\2 for install.xml\n"
              "install.xml not found\n"
              "Importing xml specs.\n" +
                  last);
    EXPECT_TRUE(misc::predicate_table().contains("has_obsolete_cutter"));
    EXPECT_NE(SDL_WasInit(SDL_INIT_VIDEO), 0U);

    // The user's desktop counts, whatever the package says; a failed import leaves a spec as well.
    ASSERT_EQ(begun_.specs.size(), 2U);
    const misc::text32 desktop = misc::to_text32(folder_ / "desk");
    EXPECT_EQ(begun_.specs[0].find_var(U"DESKTOP").value, desktop);
    installation::spec empty;
    empty.ensure_var(U"DESKTOP", desktop);
    EXPECT_EQ(test::spec_text(begun_.specs[1]), test::spec_text(empty));
    EXPECT_EQ(begun_.xml_errors.size(), 1U);
}

} // namespace
} // namespace nrd::vs_installer
