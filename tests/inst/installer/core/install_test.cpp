#include "inst/installer/core/engine_fixture.h"
#include "inst/installer/core/path_index.h"
#include "misc/file_system.h"
#include "misc/known_folders.h"
#include "misc/registry.h"
#include "support/at_log_line.h"
#include "support/file_content.h"
#include "support/locked_path.h"
#include "support/log_capture.h"

#include <stdexcept>

namespace nrd::installer::core {
namespace {

using misc::to_utf8;

const std::string new_programs = R"(App\
App\a.txt: new a
App\extra\
App\extra\single.txt: new single
App\lib\
App\lib\b.txt: new b
App\uninstaller.dir\
App\uninstaller.dir\uninstall.bat: written
App\uninstaller.dir\uninstall.xml: written
App\uninstaller.dir\uninstaller.exe: new exe
App\z.txt: new z
)";

const std::string new_values = R"(DisplayIcon = "T:\Programs\App\a.txt"
DisplayName = VS5 engine test
DisplayVersion = 1.${X}
InstallLocation = "T:\Programs\App\"
Publisher = Maker
UninstallString = "T:\Programs\App\uninstaller.dir\uninstall.bat"
)";

class install : public engine {
protected:
    static path_index index_of_machine()
    {
        std::ifstream index = misc::open_for_reading(path_index_file());
        return read_path_index(index);
    }

    /// All that a finished run of the product leaves.
    void expect_installed()
    {
        EXPECT_EQ(programs(), new_programs);
        EXPECT_EQ(uninstall_values(), new_values);
        EXPECT_EQ(plain(test::registry_text(key_.path())),
                  "[Settings]\nFolder = T:\\Programs\\App\\\n");
        EXPECT_FALSE(misc::missing(folder_ / "menu\\App.lnk"));
        EXPECT_EQ(plain(index_of_machine().at("code").path), "T:\\Programs\\App\\lib");
    }
};

TEST_F(install, on_a_fresh_machine_leaves_files_registry_shortcut_and_index)
{
    add_product();
    EXPECT_TRUE(run());
    expect_installed();
    EXPECT_EQ(observer_.events(), "installing: a.txt\ninstalling: b.txt\ninstalling: z.txt\n"
                                  "installing: uninstaller.exe\ninstalling: single.txt\n");
    EXPECT_FALSE(observer_.failure());
}

TEST_F(install, over_an_older_installation_leaves_nothing_of_it)
{
    add_product();
    add_old_installation();
    misc::set_string_value(misc::uninstall_key(name_), U"Publisher", U"Old");
    EXPECT_TRUE(run());
    expect_installed();
    EXPECT_TRUE(run()); // and once more over itself
    expect_installed();
}

TEST_F(install, makes_shortcuts_for_this_system_and_has_them_removed_again)
{
    add_vars();
    package_.file("a.txt", "a").file("uninstaller.dir\\x", "");
    add_fileset("a.txt", "${APP_INSTALL_PATH}");
    add_fileset("uninstaller.dir", "${APP_INSTALL_PATH}uninstaller.dir");
    const std::string menu = to_utf8(folder_ / "menu");
    test::write_file(folder_ / "blocked", "");
    for (const char* const shortcut :
         {"win' os='win'", "all' os='all'", "default'", "mac' os='mac'", "none' os=''",
          "../blocked/x' os='win'", "${START_MENU}' os='mac'"}) {
        package_.add("shortcuts", "<shortcut destination='${APP_INSTALL_PATH}a.txt' location='" +
                                      menu + "/" + shortcut + "/>");
    }
    EXPECT_TRUE(run());
    std::string links;
    for (const misc::path& link : misc::directory_entries(folder_ / "menu")) {
        links += to_utf8(link.filename()) + "\n";
    }
    EXPECT_EQ(links, "all.lnk\ndefault.lnk\nwin.lnk\n");
    const std::string xml = plain(test::read_file(app_ / "uninstaller.dir\\uninstall.xml"));
    const std::size_t begin = xml.find("<filesets>");
    // A link that could not be made leaves a record, too.
    EXPECT_EQ(xml.substr(begin, xml.find("</filesets>") - begin), R"(<filesets>
				<fileset in="a.txt" out="T:\Programs\App\a.txt" />
				<fileset in="uninstaller.dir\x" out="T:\Programs\App\uninstaller.dir\x" />
				<fileset in="T:\Programs\App\a.txt" out="T:\menu\win.lnk" />
				<fileset in="T:\Programs\App\a.txt" out="T:\menu\all.lnk" />
				<fileset in="T:\Programs\App\a.txt" out="T:\menu\default.lnk" />
				<fileset in="T:\Programs\App\a.txt" out="" />
			)");
}

TEST_F(install, keeps_the_last_of_two_path_entries_for_one_host)
{
    add_vars();
    package_.var("CODE", "b/${X}");
    package_.add("path_entries", "<path_entry app_code='${CODE}' path='${APP_INSTALL_PATH}/1'/>"
                                 "<path_entry app_code='a' path='http://x'/>"
                                 "<path_entry app_code='${CODE}' path='${APP_INSTALL_PATH}/2'/>");
    EXPECT_TRUE(run());
    const path_index index = index_of_machine();
    ASSERT_EQ(index.size(), 2U);
    EXPECT_EQ(index.at("a").path, "http:\\x");
    EXPECT_EQ(plain(index.at("b\\${X}").path), "T:\\Programs\\App\\2");
}

TEST_F(install, gives_true_also_where_the_back_up_cannot_be_removed)
{
    add_product();
    add_old_installation();
    std::unique_ptr<test::locked_path> lock;
    const test::at_log_line removal("Removing backup path: ", [&] {
        lock = std::make_unique<test::locked_path>(backup() / "a.txt");
    });
    EXPECT_TRUE(run());
    EXPECT_EQ(test::read_file(backup() / "a.txt"), "old a");
    EXPECT_EQ(test::read_file(app_ / "a.txt"), "new a");
}

TEST_F(install, logs_exactly_these_lines)
{
    add_vars();
    package_.file("a.txt", "new a").file("tree\\b.txt", "new b");
    add_fileset("a.txt", "${APP_INSTALL_PATH}");
    add_fileset("tree", "${APP_INSTALL_PATH}tree");
    package_.add("registry", "<key path='" + to_utf8(key_.path()) + "' name='v' data='${X}'/>");
    package_.add("shortcuts", "<shortcut location='" + to_utf8(folder_ / "menu\\App") +
                                  "' destination='${APP_INSTALL_PATH}a.txt'/>"
                                  "<shortcut location='${X}' os='mac'/>");
    package_.add("path_entries", "<path_entry app_code='code' path='${APP_INSTALL_PATH}'/>");
    const installation::spec s = spec();
    const misc::scoped_current_path here(s.working_directory);
    add_old_installation();
    const test::log_capture log;
    EXPECT_TRUE(core::install(s, observer_));
    const auto called = [](const std::string& call) {
        return call + "\n" + call + " returned ec == (success)\n";
    };
    const std::string menu = to_utf8(misc::get_common_programs_folder()) + "\n";
    const std::string app = "Finding var: APP_INSTALL_PATH\nFound APP_INSTALL_PATH\n";
    const std::string x = "Finding var: X\nCan't find X\n";
    EXPECT_EQ(plain(log.text()),
              "Start of install.\n"
              "Configuring paths.\n"
              "Ensuring var: START_MENU" +
                  menu +
                  "Finding var: START_MENU\nCan't find START_MENU\n"
                  "Finding var: START_MENU\nCan't find START_MENU\n"
                  "Adding var: START_MENU" +
                  menu +
                  "Setting up install directory.\n"
                  "Final install path: T:\\Programs\\App\\\n"
                  "Checking for install.\n"
                  "Windows: VS5 engine test\n"
                  "Reg key found: already installed.\n"
                  "installation already exists\n"
                  "backup path: T:\\Programs\\App_(32 digits)\n" +
                  called("rename(T:\\Programs\\App\\,T:\\Programs\\App_(32 digits))") +
                  "Installing path: T:\\Programs\\App\\\n"
                  "Setting var: APP_INSTALL_PATHT:\\Programs\\AppT:\\Programs\\App\\\n"
                  "Setup install directory.\n"
                  "Install paths start.\n"
                  "Adding uninstall keys.\n"
                  "Finding var: APP_ICON\nCan't find APP_ICON\n"
                  "Creating uninstall spec.\n"
                  "Setting var: APP_INSTALL_PATHT:\\Programs\\App\\T:\\Programs\\App\\\n" +
                  app + "Regular file.\n" + app +
                  "Install packs start.\n"
                  "Install pack start.\n"
                  "Install file start.\n" +
                  app +
                  "Install file in: a.txt\n"
                  "Install file out: T:\\Programs\\App\\\n"
                  "Copy recursive: a.txt , T:\\Programs\\App\\ begin:\n"
                  "File in: a.txt\n"
                  "File out: T:\\Programs\\App\\\n" +
                  called("create_directories(T:\\Programs\\App)") + "Installing file.\n" +
                  called("copy_file(a.txt,T:\\Programs\\App\\a.txt)") +
                  "Copy recursive: a.txt , T:\\Programs\\App\\ complete.\n" + app +
                  "Install file in: tree\n"
                  "Install file out: T:\\Programs\\App\\tree\n"
                  "Copy recursive: tree , T:\\Programs\\App\\tree begin:\n"
                  "File in: tree\n"
                  "File out: T:\\Programs\\App\\tree\n"
                  "Is a directory\n" +
                  called("create_directories(T:\\Programs\\App\\tree)") +
                  "File in: tree\\b.txt\n"
                  "File out: T:\\Programs\\App\\tree\\b.txt\n" +
                  called("create_directories(T:\\Programs\\App\\tree)") + "Installing file.\n" +
                  called("copy_file(tree\\b.txt,T:\\Programs\\App\\tree\\b.txt)") +
                  "Copy recursive: tree , T:\\Programs\\App\\tree complete.\n"
                  "Creating uninstall bat file.\n" +
                  app +
                  // The file itself goes into the folder of the uninstaller.
                  "Exporting uninstall spec: T:\\Programs\\App\\uninstall.xml\n"
                  "Installing reg keys.\n" +
                  x + x + // one for the spec's own value, one for that of the version
                  "Setting var: APP_INSTALL_PATHT:\\Programs\\App\\T:\\Programs\\App\\\n" + app +
                  "Removing backup path: T:\\Programs\\App_(32 digits)\n" +
                  called("remove_all(T:\\Programs\\App_(32 digits))") + "Finished install.\n");
}

} // namespace
} // namespace nrd::installer::core
