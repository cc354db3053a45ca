#include "vs/vs_installer/locations.h"

#include "misc/file_system.h"
#include "misc/known_folders.h"
#include "misc/system_info.h"
#include "support/file_content.h"
#include "support/log_capture.h"
#include "support/spec_text.h"
#include "vs/vs_installer/host_machine.h"

#include <stdexcept>

namespace nrd::vs_installer {
namespace {

using installation::fileset;
using installation::package;
using installation::spec;
using misc::text32;

fileset to(const text32& out)
{
    return {U"in", out, U""};
}

/// What the first four packages are for is known by their places alone.
spec product_spec(std::vector<package> more = {})
{
    spec s;
    s.vars[0].value = U"D:\\";
    s.vars.push_back({U"APP_NAME", U"App"});
    s.vars.push_back({U"APP_INSTALL_PATH", U"C:\\App"});
    s.vars.push_back({U"INSTALLER_CODE", U"VS5"});
    s.packages = {{"zero", "win", "64", {to(U"0")}},
                  {"one", "win", "64", {to(U"1")}},
                  {"two", "win", "all", {to(U"2 first"), to(U"2")}},
                  {"three", "win", "all", {to(U"3 first"), to(U"3")}}};
    s.packages.insert(s.packages.end(), more.begin(), more.end());
    return s;
}

class locations : public host_machine {
protected:
    /// The product's spec as it is on this machine: what it holds, by what its lines begin with.
    std::string configured(spec s, const std::string& lines)
    {
        EXPECT_TRUE(configure_install_locations(s));
        std::string text;
        std::string all = test::spec_text(s);
        for (std::size_t end; (end = all.find('\n')) != all.npos; all.erase(0, end + 1)) {
            if (all.starts_with(lines)) {
                text += all.substr(0, end + 1);
            }
        }
        return folder_.plain(text);
    }

    void corel_2020()
    {
        misc::create_directories(folder_ / "Corel\\Programs64");
        value("Corel\\Setup\\CorelDRAW Graphics Suite 2020", "Destination",
              misc::to_utf8(folder_ / "Corel") + "\\");
    }

    /// Without the look-ups of variables.
    static std::string steps(const test::log_capture& log)
    {
        std::string text;
        for (auto line = log.lines().begin(); line != log.lines().end(); ++line) {
            if (line->starts_with("Finding var: ")) {
                ++line; // its answer
            } else {
                text += line->substr(0, line->find("Vars:")) + "\n";
            }
        }
        return text;
    }

    // On a 32-bit Windows nothing of the 64-bit half is there.
    const bool os64_ = misc::runs_under_wow64();
};

TEST_F(locations, the_word_size_decides_on_system_folders_and_packages)
{
    EXPECT_EQ(configured(product_spec(), "var "),
              std::string("var DEFAULT_PROGRAM_DIRECTORY = C:\\Program Files\\\n"
                          "var APP_NAME = App\n"
                          "var APP_INSTALL_PATH = C:\\App\n"
                          "var INSTALLER_CODE = VS5\n") +
                  (os64_ ? "var COREL_DLL_INSTALL_PATH_32 = C:\\Windows\\SysWOW64\n"
                           "var COREL_DLL_INSTALL_PATH_64 = C:\\Windows\\SysNative\n"
                         : "var COREL_DLL_INSTALL_PATH_32 = C:\\Windows\\System32\n"));
    spec s = product_spec();
    configure_install_locations(s);
    std::string packages;
    for (const package& each : s.packages) {
        packages += test::package_text(each);
    }
    EXPECT_EQ(packages, os64_ ? "package zero (win, 64)\n  in -> 0\n"
                                "package one (win, 64)\n  in -> 1\n"
                                "package two (win, all)\n  in -> 2\n"
                                "package three (win, all)\n  in -> 3\n"
                              : "package two (win, all)\n  in -> 2 first\n  in -> 2\n"
                                "package three (win, all)\n  in -> 3 first\n  in -> 3\n");
    s = product_spec();
    s.vars.push_back({U"COREL_DLL_INSTALL_PATH_32", U"mine"});
    EXPECT_EQ(configured(s, "var COREL_DLL_INSTALL_PATH_32"),
              "var COREL_DLL_INSTALL_PATH_32 = mine\n");
}

TEST_F(locations, host_filesets_go_to_the_host_of_that_name_and_word_size_or_nowhere)
{
    corel_2020();
    illustrator(folder_ / "AI", 64);
    listed("1", "Adobe Illustrator 2023 (64 Bit) and more (32 Bit)", folder_ / "AI");
    illustrator(folder_ / "CS6", 32);
    listed("2", "Adobe Illustrator CS6 (32 Bit)", folder_ / "CS6");
    const std::vector<package> more = {
        {"hosts",
         "win",
         "all",
         {to(U"${Adobe Illustrator 2023 64}\\x"), to(U"${Adobe Illustrator 2023 64}\\y"),
          to(U"${Adobe Illustrator 2023 32}\\x"), to(U"${Adobe Illustrator CS6 32}"),
          to(U"${CorelDRAW Graphics Suite 2020 64}Draw"),
          to(U"${CorelDRAW Graphics Suite 2020 32}Draw"), to(U"${CorelDRAWX}"),
          to(U"${CorelDRAWX}"), to(U"${A}${B}"), to(U"plain"), to(U"${APP_INSTALL_PATH}\\x"),
          to(U"${UNKNOWN}"), to(U"${Adobe Illustrator}"), to(U"")}},
        {"other", "mac", "all", {to(U"${Adobe Illustrator 2023 32}")}}};
    spec s = product_spec(more);
    // Known, and yet expanded to its own placeholder.
    s.vars.push_back({U"Adobe Illustrator CS6 32", U"~~dollar~~{Adobe Illustrator CS6 32}"});
    EXPECT_EQ(configured(s, "var Adobe") + configured(s, "var Corel"),
              "var Adobe Illustrator CS6 32 = T:\\CS6/Plug-ins\n"
              "var Adobe Illustrator 2023 64 = T:\\AI/Plug-ins\n"
              "var CorelDRAW Graphics Suite 2020 64 = T:\\Corel\\\n");
    const test::log_capture log;
    configure_install_locations(s);
    EXPECT_EQ(test::package_text(s.packages[s.packages.size() - 2]),
              "package hosts (win, all)\n"
              "  in -> ${Adobe Illustrator 2023 64}\\x\n"
              "  in -> ${Adobe Illustrator 2023 64}\\y\n"
              "  in -> \n"
              "  in -> ${Adobe Illustrator CS6 32}\n"
              "  in -> ${CorelDRAW Graphics Suite 2020 64}Draw\n"
              "  in -> \n  in -> \n  in -> \n"
              "  in -> ${A}${B}\n"
              "  in -> plain\n"
              "  in -> ${APP_INSTALL_PATH}\\x\n"
              "  in -> ${UNKNOWN}\n"
              "  in -> ${Adobe Illustrator}\n"
              "  in -> \n");
    EXPECT_EQ(s.packages.back().filesets[0].out(), U"${Adobe Illustrator 2023 32}");
    EXPECT_EQ(folder_.plain(misc::to_utf8(s.expand(U"${Adobe Illustrator 2023 64}\\x"))),
              "T:\\AI\\Plug-ins\\x");
    const std::string text = folder_.plain(steps(log));
    const std::string one = "No of Var names: 1\nVersion: ";
    EXPECT_EQ(text.substr(text.find("Adding package files.\n" + one)),
              "Adding package files.\n" + one +
                  "Adobe Illustrator 2023 64\n"
                  "Match found: T:\\AI\n"
                  "Adding var: Adobe Illustrator 2023 64, T:\\AI/Plug-ins\n"
                  "Adding var: Adobe Illustrator 2023 64T:\\AI/Plug-ins\n" +
                  one + "Adobe Illustrator 2023 32\n" + one +
                  "Adobe Illustrator CS6 32\n"
                  "Match found: T:\\CS6\n"
                  "Updating var: Adobe Illustrator CS6 32, T:\\CS6/Plug-ins\n"
                  "Setting var: Adobe Illustrator CS6 32~~dollar~~{Adobe Illustrator CS6 32}"
                  "T:\\CS6/Plug-ins\n" +
                  one +
                  "CorelDRAW Graphics Suite 2020 64\n"
                  "Match found: T:\\Corel\\\n"
                  "Adding var: CorelDRAW Graphics Suite 2020 64, T:\\Corel\\\n"
                  "Adding var: CorelDRAW Graphics Suite 2020 64T:\\Corel\\\n" +
                  one + "CorelDRAW Graphics Suite 2020 32\n" + one + "CorelDRAWX\n" + one +
                  "CorelDRAWX\n"
                  "No of Var names: 2\nSkipping.\n"
                  "No of Var names: 0\nSkipping.\n" +
                  one + "UNKNOWN\n" + one +
                  "Adobe Illustrator\n"
                  "Skipping Mac package.\n"
                  "Final spec: App\n");
}

TEST_F(locations, the_first_of_two_hosts_of_one_name_gets_the_plug_ins_and_adobe_goes_first)
{
    const std::string name = "Adobe Illustrator CorelDRAW Graphics Suite 1";
    for (const char* const folder : {"first", "second"}) {
        illustrator(folder_ / folder, 32);
        listed(folder, name, folder_ / folder);
    }
    value("Corel\\Setup\\" + name, "Destination", misc::to_utf8(folder_ / "third"));
    const text32 placeholder = U"${" + misc::to_text32(std::string_view(name)) + U" 32}";
    EXPECT_EQ(configured(product_spec({{"hosts", "win", "all", {to(placeholder)}}}), "var Adobe"),
              "var " + name + " 32 = T:\\first/Plug-ins\n");
}

TEST_F(locations, a_corel_host_brings_the_keys_of_its_launcher)
{
    EXPECT_EQ(configured(product_spec(), "key "), "");
    corel_2020();
    const auto block = [](const std::string& key) {
        return "key " + key + " : Velmora Studio 5 =  {0}\n" + "key " + key +
               " : Send to Velmora Studio 5 = ${APP_INSTALL_PATH}\\"
               "corel_export_launcher.dir\\corel_export_launcher.exe\n" +
               "key " + key +
               " : Registration Marks (VS5) = ${APP_INSTALL_PATH}\\"
               "corel_regmarks_launcher.dir\\corel_regmarks_launcher.exe\n";
    };
    EXPECT_EQ(configured(product_spec(), "key "),
              (os64_ ? block("SOFTWARE\\WOW6432Node\\Corel\\AppLauncher") : std::string()) +
                  block("SOFTWARE\\Corel\\AppLauncher"));
}

TEST_F(locations, the_log_up_to_the_packages_is_this)
{
    corel_2020();
    spec s = product_spec();
    const test::log_capture log;
    configure_install_locations(s);
    const std::string text = folder_.plain(steps(log));
    const std::string answer = os64_ ? "1" : "0";
    const std::string found = "Name: CorelDRAW Graphics Suite 2020, Path: T:\\Corel\\\n";
    const std::string corel = "Finding Corel versions.\nFound Corel installations:\n";
    EXPECT_EQ(text.substr(0, text.find("Adding package files.")),
              "Configuring install locations.\nMaking Windows spec.\n"
              "WOW proc: " +
                  answer + "\n64-bit proc: " + answer +
                  "\n"
                  "Setting default program dir to C:\\Program Files\n"
                  "Setting var: DEFAULT_PROGRAM_DIRECTORYD:\\C:\\Program Files\\\n"
                  "Making VS5 for Windows spec.\n" +
                  (os64_ ? "32 bit COREL installer running on 64 bit Windows.\n"
                           "Adding var: COREL_DLL_INSTALL_PATH_32C:\\Windows\\SysWOW64\n"
                           "Adding var: COREL_DLL_INSTALL_PATH_64C:\\Windows\\SysNative\n"
                           "Preventing 32 bit install.\n"
                         : "32 bit COREL installer running on 32 bit Windows.\n"
                           "Adding var: COREL_DLL_INSTALL_PATH_32C:\\Windows\\System32\n"
                           "Preventing 64 bit install.\n") +
                  "Finding Adobe versions.\nFound possible Adobe installations:\n"
                  "Accepted Adobe installations:\nAdobe not found.\n" +
                  corel + found + corel + (misc::is_64bit_windows() ? std::string() : found) +
                  "Adding Corel reg keys.\nAdding packages info.\n");
}

TEST_F(locations, any_other_product_gets_no_more_than_the_folder_of_programs)
{
    spec s = product_spec();
    s.set_var(U"INSTALLER_CODE", U"${VS5}");
    corel_2020();
    misc::error_code ec;
    const misc::path shared = misc::get_program_data_folder() / "Tavrolen Corporation";
    misc::remove_all(shared, ec);
    const test::log_capture log;
    EXPECT_TRUE(configure_install_locations(s));
    EXPECT_EQ(s.packages.size(), 4U);
    EXPECT_EQ(s.packages[2].filesets.size(), 2U);
    EXPECT_TRUE(s.reg_keys.empty());
    const std::string text = steps(log);
    EXPECT_EQ(text.substr(text.find("Setting var: ")),
              "Setting var: DEFAULT_PROGRAM_DIRECTORYD:\\C:\\Program Files\\\nFinal spec: App\n");
    EXPECT_TRUE(misc::is_directory(shared));
}

TEST_F(locations, a_spec_that_is_not_of_this_form_throws)
{
    spec without_packages = product_spec();
    without_packages.packages.resize(os64_ ? 3 : 1);
    EXPECT_THROW(configure_install_locations(without_packages), std::out_of_range);
    if (os64_) {
        spec without_filesets = product_spec();
        without_filesets.packages[3].filesets.clear();
        EXPECT_THROW(configure_install_locations(without_filesets), std::out_of_range);
    }
}

TEST_F(locations, the_shared_folder_has_to_be_made)
{
    const misc::path shared = misc::get_program_data_folder() / "Tavrolen Corporation";
    misc::error_code ec;
    misc::remove_all(shared, ec);
    test::write_file(shared, "in the way");
    spec s = product_spec();
    EXPECT_THROW(configure_install_locations(s), misc::filesystem_error);
    misc::remove(shared, ec);
}

} // namespace
} // namespace nrd::vs_installer
