#include "inst/installer/core/uninstall_data.h"

#include "inst/installation/parser.h"
#include "inst/installer/core/engine_fixture.h"
#include "misc/file_system.h"
#include "support/file_content.h"
#include "support/log_capture.h"
#include "support/spec_text.h"

#include <stdexcept>

namespace nrd::installer::core {
namespace {

using misc::to_utf8;

class uninstall_data : public engine {};

TEST_F(uninstall_data, the_systems_list_gets_raw_values_in_quotation_marks)
{
    installation::spec work;
    work.vars = {{U"APP_NAME", U"A/${X}"},
                 {U"APP_VERSION", U"1/${X}"},
                 {U"PUBLISHER", U"M/${X}"},
                 {U"X", U"x"}};
    add_uninstall_keys(work, "C:\\P F\\App\\");
    const std::string start =
        "key SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\A/${X} : ";
    const std::string five =
        start + "UninstallString = \"C:\\P F\\App\\uninstaller.dir\\uninstall.bat\"\n" + start +
        "InstallLocation = \"C:\\P F\\App\\\"\n" + start + "DisplayName = A/${X}\n" + start +
        "DisplayVersion = 1/${X}\n" + start + "Publisher = M/${X}\n";
    const auto keys_of = [](const installation::spec& s) {
        const std::string text = test::spec_text(s);
        return text.substr(text.find("key "));
    };
    EXPECT_EQ(keys_of(work), five);
    work.ensure_var(U"APP_ICON", U"${X}/i.ico");
    work.reg_keys = {{U"first", "n", U"d", {}}};
    add_uninstall_keys(work, "C:\\P F\\App\\");
    EXPECT_EQ(keys_of(work), "key first : n = d\n" + five + start + "DisplayIcon = \"x\\i.ico\"\n");
}

TEST_F(uninstall_data, the_systems_list_needs_name_version_and_publisher)
{
    for (const char32_t* const left_out : {U"APP_NAME", U"APP_VERSION", U"PUBLISHER"}) {
        installation::spec work;
        for (const char32_t* const name : {U"APP_NAME", U"APP_VERSION", U"PUBLISHER"}) {
            if (left_out != misc::text32(name)) {
                work.ensure_var(name, U"x");
            }
        }
        EXPECT_THROW(add_uninstall_keys(work, "C:\\"), std::invalid_argument);
    }
}

TEST_F(uninstall_data, each_out_of_the_uninstall_spec_names_a_file)
{
    add_vars();
    package_.var("SRC", "tree");
    package_.file("a.txt", "").file("tree\\b.txt", "").file("tree\\sub\\c.txt", "");
    package_.empty_folder("tree\\nothing");
    misc::create_directories(app_);
    add_fileset("a.txt", "${APP_INSTALL_PATH}");
    add_fileset("gone.txt", "${APP_INSTALL_PATH}/x");
    add_fileset("tree", "${APP_INSTALL_PATH}tree");
    add_fileset("a.txt", "");
    add_fileset("tree", "${APP_INSTALL_PATH}missing/tree"); // nothing is above it yet
    add_fileset("${SRC}", "${APP_INSTALL_PATH}v");          // not seen as a folder
    add_fileset("tree/", "${UNKNOWN}/t");
    package_.add("packages", "<package name='other' os='mac' bits='32'><filesets>"
                             "<fileset in='tree/sub' out='${APP_INSTALL_PATH}s'"
                             " create_folders='false'/></filesets></package>");
    const installation::spec work = spec();
    const misc::scoped_current_path here(package_.folder());
    const test::log_capture log;
    const installation::spec u = create_uninstall_spec(work, misc::to_text32(app_) + U"\\");
    std::string text;
    for (const installation::package& each : u.packages) {
        text += test::package_text(each);
    }
    EXPECT_EQ(plain(text), "package other (mac, 32)\n"
                           "  tree\\sub\\c.txt -> T:\\Programs\\App\\s\\c.txt\n"
                           "package main (win, all)\n"
                           "  a.txt -> T:\\Programs\\App\\a.txt\n"
                           "  gone.txt -> T:\\Programs\\App\\x\\gone.txt\n"
                           "  tree -> T:\\Programs\\App\\missing\\tree\n"
                           "  ${SRC} -> T:\\Programs\\App\\v\\${SRC}\n"
                           "  tree\\ -> ${UNKNOWN}\\t\n"
                           "  tree\\b.txt -> T:\\Programs\\App\\tree\\b.txt\n"
                           "  tree\\sub\\c.txt -> T:\\Programs\\App\\tree\\sub\\c.txt\n");
    EXPECT_EQ(to_utf8(u.find_var(U"APP_INSTALL_PATH").value), to_utf8(app_) + "\\");
    EXPECT_EQ(work.find_var(U"APP_INSTALL_PATH").value, misc::to_text32(app_));
    EXPECT_TRUE(log.contains("Regular file."));
    EXPECT_TRUE(log.contains("Directory file."));
}

TEST_F(uninstall_data, a_source_that_goes_meanwhile_brings_nothing)
{
    std::deque<installation::fileset> filesets;
    const test::log_capture log;
    expand_directory({}, filesets, folder_ / "missing", folder_ / "out");
    EXPECT_TRUE(filesets.empty());
    EXPECT_EQ(log.text(), "Path does not exist.\n");
}

TEST_F(uninstall_data, the_batch_file_is_this_text)
{
    const misc::path folder = folder_ / "Programs\\\xc3\x84 App\\uninstaller.dir";
    test::write_file(folder / "uninstall.bat", std::string(1000, 'x'));
    create_uninstall_bat(misc::to_path(std::string_view(to_utf8(folder.parent_path()) + "\\")));
    std::string text = test::read_file(folder / "uninstall.bat");
    // Every line ends as the system ends lines.
    std::ofstream(misc::to_host(folder / "line").c_str()) << "\n";
    const std::size_t line_end = test::read_file(folder / "line").size();
    EXPECT_EQ(std::erase(text, '\r'), 11 * (line_end - 1));
    EXPECT_EQ(plain(text), "@echo off\n"
                           "chcp 65001\n"
                           "mkdir %TMP%\\tvl_uninstall\n"
                           "xcopy \"T:\\Programs\\\xc3\x84 App\\uninstaller.dir\""
                           " %TMP%\\tvl_uninstall\\ /E /H /Y /q /r\n"
                           "cd %TMP%\\tvl_uninstall\n"
                           "Start /WAIT %TMP%\\tvl_uninstall\\uninstaller.exe --nrd\n"
                           "if %errorlevel% equ 0 (\n"
                           "\trmdir /s /q \"T:\\Programs\\\xc3\x84 App\\\"\n"
                           ")\n"
                           "cd ..\n"
                           "rmdir /s /q %TMP%\\tvl_uninstall\n");
}

TEST_F(uninstall_data, without_the_uninstallers_folder_there_is_no_batch_file)
{
    misc::create_directories(app_);
    create_uninstall_bat(app_);
    EXPECT_TRUE(misc::directory_entries(app_).empty());
}

} // namespace
} // namespace nrd::installer::core
