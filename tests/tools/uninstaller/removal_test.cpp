#include "tools/uninstaller/removal.h"

#include "inst/installation/parser.h"
#include "inst/installer/core/install.h"
#include "inst/installer/core/path_index.h"
#include "misc/file_system.h"
#include "misc/registry.h"
#include "support/denied_key.h"
#include "support/file_content.h"
#include "support/folder_text.h"
#include "support/locked_path.h"
#include "support/package_builder.h"
#include "support/recording_observer.h"
#include "support/registry_text.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace nrd::uninstaller {
namespace {

using installation::fileset;
using installation::spec;
using misc::text32;
using misc::to_text32;
using misc::to_utf8;
using test::folder_text;
using test::write_file;

const text32 app_name = U"VS5 uninstaller test";

/// A package with every form in which a destination can be written, hosts for it to go to, and what
/// others keep in the same places.
class removal_test : public ::testing::Test {
protected:
    removal_test()
    {
        package_.var("APP_NAME", to_utf8(app_name))
            .var("APP_VERSION", "1")
            .var("PUBLISHER", "P")
            .var("APP_INSTALL_PATH", to_utf8(install_))
            .var("HOST", to_utf8(host_))
            .var("MENU", to_utf8(menu_))
            .var("KEYS", to_utf8(keys_.path()))
            .var("NOTES", "texts/other notes.txt");
        write_file(host_ / "own.txt", "theirs");
        misc::create_directories(menu_);
        misc::create_directories(installer::core::path_index_file().parent_path());
    }

    ~removal_test() override { misc::delete_key(misc::uninstall_key(app_name)); }

    /// Runs the real engine, and gives what it has left for the uninstaller.
    spec install()
    {
        const spec s = package_.import();
        const misc::scoped_current_path here(s.working_directory);
        test::recording_observer observer;
        EXPECT_TRUE(installer::core::install(s, observer));
        return installation::import_spec(install_ / "uninstaller.dir" / "uninstall.xml");
    }

    void add_uninstaller()
    {
        package_.file("uninstaller.dir/uninstaller.exe", "exe")
            .add("packages", R"(<package os="win" bits="all"><filesets>
                <fileset in="uninstaller.dir" out="${APP_INSTALL_PATH}\uninstaller.dir"/>
                </filesets></package>)");
    }

    test::temp_folder root_;
    test::scratch_key keys_;
    misc::path install_ = root_ / "VS5";
    misc::path host_ = root_ / "host";
    misc::path menu_ = root_ / "menu";
    test::package_builder package_{root_ / "package"};
};

TEST_F(removal_test, removes_all_that_an_install_brought_and_nothing_else)
{
    package_.file("app/read me.txt", "r")
        .file("app/data/list.txt", "l")
        .file("notes.txt", "n")
        .file("texts/other notes.txt", "o")
        .file("plug/plug.txt", "p")
        .add("packages", R"(<package os="win" bits="all"><filesets>
            <fileset in="app" out="${APP_INSTALL_PATH}"/>
            <fileset in="notes.txt" out="${HOST}\VS5 notes.txt"/>
            <fileset in="${NOTES}" out="${HOST}"/>
            <fileset in="plug" out="${HOST}\VS5 whole\"/>
            <fileset in="plug/" out="${HOST}\new\VS5 whole"/>
            <fileset in="plug" out="${HOST}\VS5 by file"/>
            <fileset in="notes.txt" out=""/>
            </filesets></package>
            <package os="mac" bits="all"><filesets>
            <fileset in="plug" out="${HOST}"/><fileset in="mac.txt" out="/Applications"/>
            </filesets></package>)")
        .add("shortcuts", R"(<shortcut location="${MENU}\VS5\Read me" os="all"
            destination="${APP_INSTALL_PATH}\read me.txt"/>)")
        .add("registry", R"(<key path="${KEYS}\VS5" name="Path" data="${APP_INSTALL_PATH}"/>
            <key path="${KEYS}\VS5" name="" data="default"/>
            <key path="${KEYS}\VS5\Icon" name="" data="i"/>
            <key path="${KEYS}\Vendor\Product" name="Version" data="v"/>
            <key path="${KEYS}\Shared" name="Send" data="s"/>
            <key path="${KEYS}\Default" name="" data="d"/>)")
        .add("path_entries", R"(<path_entry app_code="VS5 test" path="${APP_INSTALL_PATH}"/>)");
    add_uninstaller();
    misc::create_key(keys_ / U"Shared");
    misc::set_string_value(keys_ / U"Shared", U"Other", U"theirs");
    misc::create_key(keys_ / U"Default\\Below");
    installer::core::add_path_index_entry(U"Other", U"C:\\Other");
    const spec s = install();
    test::make_read_only(host_ / "VS5 by file" / "plug.txt");
    test::make_read_only(host_ / "VS5 whole" / "plug.txt");
    ASSERT_EQ(folder_text(host_), "new\\\nnew\\VS5 whole\\\nnew\\VS5 whole\\plug.txt: p\n"
                                  "other notes.txt: o\nown.txt: theirs\n"
                                  "VS5 by file\\\nVS5 by file\\plug.txt: p\nVS5 notes.txt: n\n"
                                  "VS5 whole\\\nVS5 whole\\plug.txt: p\n");

    const removal_result result = remove_installation(s);

    EXPECT_EQ(result.left, leftovers{});
    EXPECT_FALSE(result.install_folder_is_shared);
    EXPECT_EQ(folder_text(host_), "own.txt: theirs\n");
    EXPECT_EQ(folder_text(menu_), "");
    EXPECT_TRUE(misc::is_directory(menu_));
    // The two files that the engine has written itself are the batch file's to remove.
    const auto size = [this](const char* name) {
        return std::string(name) + ": " +
               std::to_string(misc::file_size(install_ / "uninstaller.dir" / name)) + " bytes\n";
    };
    EXPECT_EQ(folder_text(install_), "uninstaller.dir\\\nuninstaller.dir\\" +
                                         size("uninstall.bat") + "uninstaller.dir\\" +
                                         size("uninstall.xml"));
    EXPECT_EQ(test::registry_text(keys_.path()),
              "[Default]\n[Default\\Below]\n[Shared]\nOther = theirs\n");
    EXPECT_FALSE(misc::key_exists(misc::uninstall_key(app_name)));
    EXPECT_EQ(test::read_file(installer::core::path_index_file()).find("VS5 test"),
              std::string::npos);
    EXPECT_NE(test::read_file(installer::core::path_index_file()).find("Other"), std::string::npos);
}

TEST_F(removal_test, can_be_tried_again_after_a_failure)
{
    package_.file("plug/a.txt", "a")
        .file("plug/b.txt", "b")
        .add("packages", R"(<package os="win" bits="all"><filesets>
            <fileset in="plug" out="${HOST}\VS5"/></filesets></package>)")
        .add("registry", R"(<key path="${KEYS}\Free" name="Path" data="x"/>
            <key path="${KEYS}\Denied" name="Path" data="x"/>)");
    add_uninstaller();
    const spec s = install();
    const std::string entry = test::registry_text(misc::uninstall_key(app_name));
    {
        const test::locked_path locked(host_ / "VS5" / "a.txt");
        const test::denied_key denied(keys_ / U"Denied");

        const removal_result result = remove_installation(s);

        ASSERT_EQ(result.left.size(), 2U);
        EXPECT_EQ(result.left[0].find(to_utf8(host_ / "VS5" / "a.txt") + " cannot be removed: "),
                  0U);
        EXPECT_NE(result.left[1].find("Denied"), std::string::npos);
        EXPECT_EQ(folder_text(host_), "own.txt: theirs\nVS5\\\nVS5\\a.txt: a\n");
        EXPECT_FALSE(misc::key_exists(keys_ / U"Free"));
        EXPECT_EQ(test::read_file(install_ / "uninstaller.dir" / "uninstaller.exe"), "exe");
        EXPECT_EQ(test::registry_text(misc::uninstall_key(app_name)), entry);
    }
    EXPECT_EQ(remove_installation(s).left, leftovers{});
    EXPECT_EQ(folder_text(host_), "own.txt: theirs\n");
    EXPECT_EQ(test::registry_text(keys_.path()), "");
    EXPECT_FALSE(misc::key_exists(misc::uninstall_key(app_name)));
}

TEST_F(removal_test, keeps_the_entry_while_a_file_of_the_uninstaller_is_in_use)
{
    add_uninstaller();
    const spec s = install();
    const test::locked_path locked(install_ / "uninstaller.dir" / "uninstaller.exe");

    EXPECT_EQ(remove_installation(s).left.size(), 1U);
    EXPECT_TRUE(misc::key_exists(misc::uninstall_key(app_name)));
}

TEST_F(removal_test, leaves_the_batch_file_that_runs_it)
{
    // With the separator at its end the folder is listed as a whole.
    package_.file("uninstaller.dir/uninstaller.exe", "exe")
        .file("uninstaller.dir/uninstall.bat", "replaced by the engine")
        .add("packages", R"(<package os="win" bits="all"><filesets>
            <fileset in="uninstaller.dir" out="${APP_INSTALL_PATH}\uninstaller.dir\"/>
            <fileset in="uninstaller.dir/uninstall.bat" out="${APP_INSTALL_PATH}\uninstaller.dir"/>
            </filesets></package>)");
    const spec s = install();

    EXPECT_EQ(remove_installation(s).left, leftovers{});
    const misc::path batch_file = install_ / "uninstaller.dir" / "uninstall.bat";
    EXPECT_EQ(folder_text(install_), "uninstaller.dir\\\nuninstaller.dir\\uninstall.bat: " +
                                         std::to_string(misc::file_size(batch_file)) + " bytes\n");
}

/// What an uninstall.xml lists, written by hand.
class listed_test : public removal_test {
protected:
    listed_test()
    {
        add_var(U"APP_NAME", app_name);
        add_var(U"APP_INSTALL_PATH", to_text32(install_) + U"\\");
        add_var(U"HOST", to_text32(host_));
        s_.packages.emplace_back();
    }

    void add_var(const text32& name, const text32& value) { s_.vars.push_back({name, value}); }

    void list(const text32& in, const text32& out)
    {
        s_.packages.front().filesets.emplace_back(in, out, text32());
    }

    spec s_;
};

TEST_F(listed_test, leaves_folders_that_may_have_been_there_before)
{
    write_file(host_ / "Filters" / "f.txt", "theirs");
    const std::string before = folder_text(host_);
    add_var(U"SOURCE", U"C:\\media");
    list(U"${SOURCE}\\Filters", U"${HOST}\\Filters");
    list(U"folder\\", U"${HOST}\\Filters\\.");
    list(U"", U"${HOST}\\Filters");
    list(U"Filters", U"Filters");
    list(U"f.txt", U"f.txt");
    const misc::scoped_current_path here(host_ / "Filters");

    EXPECT_EQ(remove_installation(s_).left, leftovers{});
    EXPECT_EQ(folder_text(host_), before);

    // A folder that a variable names is not ours, and yet it is listed to be gone.
    list(U"folder", U"${HOST}");
    EXPECT_EQ(remove_installation(s_).left,
              leftovers{to_utf8(host_) + " is a folder that others use"});
    EXPECT_EQ(folder_text(host_), before);
}

TEST_F(listed_test, does_not_take_another_file_for_one_that_is_gone)
{
    // The link is gone; a file beside it bears the name of what it led to.
    write_file(host_ / "studio.exe", "theirs");
    list(U"C:\\App\\studio.exe", U"${HOST}\\Velmora Studio 5.lnk");

    EXPECT_EQ(remove_installation(s_).left, leftovers{});
    EXPECT_EQ(folder_text(host_), "own.txt: theirs\nstudio.exe: theirs\n");
}

TEST_F(listed_test, emptied_folders_go_up_to_the_first_that_is_not_the_products)
{
    const misc::path logs = root_ / "logs";
    add_var(U"LOGS", to_text32(logs));
    add_var(U"PRESETS", U"${HOST}\\presets");
    add_var(U"ICON_FOLDER", to_text32(install_ / "icons"));
    for (const char* name : {"host\\a\\b\\x.txt", "host\\presets\\x.txt", "host\\c\\x.txt",
                             "logs\\x.txt", "VS5\\icons\\x.txt"}) {
        write_file(root_ / name, "x");
        list(U"x.txt", to_text32(root_ / name));
    }
    write_file(host_ / "c" / "own.txt", "theirs");
    misc::create_directories(host_ / "empty");

    EXPECT_EQ(remove_installation(s_).left, leftovers{});
    EXPECT_EQ(folder_text(root_.path()),
              "host\\\nhost\\c\\\nhost\\c\\own.txt: theirs\nhost\\empty\\\n"
              "host\\own.txt: theirs\nlogs\\\nmenu\\\nVS5\\\nVS5\\icons\\\n");
}

TEST_F(listed_test, tells_if_others_have_folders_in_the_install_folder)
{
    EXPECT_FALSE(remove_installation(s_).install_folder_is_shared);

    // A folder of the product's own, empty by then.
    add_var(U"CACHE", to_text32(install_ / "cache"));
    write_file(install_ / "cache" / "x.txt", "x");
    list(U"x.txt", U"${CACHE}\\x.txt");
    EXPECT_FALSE(remove_installation(s_).install_folder_is_shared);

    s_.set_var(U"APP_INSTALL_PATH", to_text32(root_.path()) + U"\\");
    EXPECT_TRUE(remove_installation(s_).install_folder_is_shared) << "it holds the host";

    const misc::path folder = root_ / "suite";
    s_.set_var(U"APP_INSTALL_PATH", to_text32(folder) + U"\\");
    add_var(U"Illustrator 64", to_text32(folder / "Illustrator" / "Plug-ins"));
    write_file(folder / "Illustrator" / "Illustrator.exe", "theirs");
    write_file(folder / "Illustrator" / "Plug-ins" / "x.txt", "x");
    list(U"x.txt", U"${Illustrator 64}\\x.txt");
    EXPECT_TRUE(remove_installation(s_).install_folder_is_shared) << "it holds a host's folder";
    EXPECT_EQ(folder_text(folder),
              "Illustrator\\\nIllustrator\\Illustrator.exe: theirs\nIllustrator\\Plug-ins\\\n");

    s_.set_var(U"APP_INSTALL_PATH", U"c:\\program files\\");
    EXPECT_TRUE(remove_installation(s_).install_folder_is_shared) << "it is the system's";
}

} // namespace
} // namespace nrd::uninstaller
