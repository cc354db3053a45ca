#include "inst/installer/core/engine_fixture.h"
#include "misc/file_system.h"
#include "misc/registry.h"
#include "support/at_log_line.h"
#include "support/denied_key.h"
#include "support/file_content.h"
#include "support/locked_path.h"
#include "support/log_capture.h"
#include "support/unreadable_folder.h"

#include <functional>
#include <sstream>
#include <stdexcept>
#include <vector>

// A run that fails, at each of its steps: what is told, and what is on the disk afterwards.

namespace nrd::installer::core {
namespace {

using misc::to_utf8;

class failing_install : public engine {
public:
    /// From now on something happens when the log comes to a line with these words.
    void at(const std::string& words, const std::function<void()>& happening)
    {
        happenings_.push_back(std::make_unique<test::at_log_line>(words, happening));
    }

    void lose_source(std::string_view name)
    {
        misc::error_code ec;
        misc::remove_all(package_.folder() / misc::to_path(name), ec);
        observer_.answer = test::answer_as_wizard;
    }

    void make_source_unreadable(std::string_view name, const std::string& from)
    {
        observer_.answer = test::answer_as_wizard;
        at(from, [this, folder = package_.folder() / misc::to_path(name)] {
            unreadable_ = std::make_unique<test::unreadable_folder>(folder);
        });
        at("Failed to copy.", [this] { unreadable_.reset(); });
    }

    /// The file is there and open when its turn comes, until the run has failed.
    void open_target(std::string_view name)
    {
        const misc::path file = app_ / misc::to_path(name);
        observer_.answer = [this, file](const installation::install_event& event) {
            if (event.args.size() == 1 && event.args[0] == misc::to_text32(file.filename())) {
                test::write_file(file, "in use");
                locked_ = std::make_unique<test::locked_path>(file);
            }
            return true;
        };
        at("Installer_error.", [this] { locked_.reset(); });
    }

    /// A file stands where a folder is to be made.
    void block_folder(std::string_view name)
    {
        const misc::path folder = app_ / misc::to_path(name);
        at("create_directories(" + to_utf8(folder),
           [folder] { test::write_file(folder, "in the way"); });
    }

    /// With `gone`, the key can be made no more, and is not there when the value is written.
    void refuse_key(bool gone)
    {
        misc::create_key(key_ / U"Settings");
        denied_ = std::make_unique<test::denied_key>(key_ / U"Settings");
        observer_.answer = [this, gone, asked = 0](const auto& event) mutable {
            if (gone && event.id == "not_running_as_admin" && ++asked == 2) {
                denied_.reset();
                misc::delete_key(key_ / U"Settings");
            }
            return event.id != (gone ? "reg_key_does_not_exist" : "not_running_as_admin");
        };
    }

    [[nodiscard]] const misc::path& app() const { return app_; }

protected:
    /// The older installation lies beside its folder, whole.
    void expect_aside(const std::string& before)
    {
        const misc::path aside = backup();
        ASSERT_FALSE(aside.empty());
        misc::error_code ec;
        misc::remove_all(app_, ec);
        misc::rename(aside, app_, ec);
        EXPECT_EQ(programs_exactly(), before);
    }

    /// The names of all that lies where the product goes, without the top folder's.
    std::string names()
    {
        std::istringstream lines(programs());
        std::string text;
        for (std::string line; std::getline(lines, line);) {
            text += line == "App\\" ? "" : line.substr(4, line.find(':') - 4) + " ";
        }
        return text;
    }

    std::vector<std::unique_ptr<test::at_log_line>> happenings_;
    std::unique_ptr<test::denied_key> denied_;
    std::unique_ptr<test::locked_path> locked_;
    std::unique_ptr<test::unreadable_folder> unreadable_;
};

using self = failing_install;

/// Something that makes the product's installation fail.
struct fault {
    const char* name;
    void (*arrange)(self&);
    const char* line; ///< in the log, of the step that fails; empty where none tells
    const char* left; ///< names that a first installation leaves behind
};

const char* const all_copied = "a.txt extra\\ extra\\single.txt lib\\ lib\\b.txt uninstaller.dir\\ "
                               "uninstaller.dir\\uninstall.bat uninstaller.dir\\uninstall.xml "
                               "uninstaller.dir\\uninstaller.exe z.txt ";
const char* const all_but_last =
    "a.txt lib\\ lib\\b.txt uninstaller.dir\\ uninstaller.dir\\uninstaller.exe z.txt ";
const char* const no_source = "In file does not exist.";
const char* const no_right = "Does not have permission to install file.";

const fault faults[] = {
    {"first_source", [](self& f) { f.lose_source("app"); }, no_source, ""},
    {"last_source", [](self& f) { f.lose_source("single.txt"); }, no_source, all_but_last},
    {"unreadable_source",
     [](self& f) {
         f.make_source_unreadable("app\\lib",
                                  "create_directories(" + to_utf8(f.app()) + "\\lib) returned");
     },
     "Failed to copy.", "a.txt lib\\ "},
    {"first_target_in_use", [](self& f) { f.open_target("a.txt"); }, no_right, "a.txt "},
    {"last_target_in_use", [](self& f) { f.open_target("extra\\single.txt"); }, no_right,
     "a.txt extra\\ extra\\single.txt lib\\ lib\\b.txt uninstaller.dir\\ "
     "uninstaller.dir\\uninstaller.exe z.txt "},
    {"folder_in_place_of_a_file",
     [](self& f) {
         f.at("copy_file(app\\z.txt", [&f] { misc::create_directories(f.app() / "z.txt"); });
     },
     "", "a.txt lib\\ lib\\b.txt z.txt\\ "},
    {"file_in_place_of_a_folder", [](self& f) { f.block_folder("lib"); },
     "Failed to create directories.", "a.txt lib "},
    {"file_in_place_of_a_parent", [](self& f) { f.block_folder("extra"); },
     "Failed to create parent directories.",
     "a.txt extra lib\\ lib\\b.txt uninstaller.dir\\ uninstaller.dir\\uninstaller.exe z.txt "},
    {"refused_key", [](self& f) { f.refuse_key(false); }, "Installing reg keys.", all_copied},
    {"key_that_is_gone", [](self& f) { f.refuse_key(true); }, "Installing reg keys.", all_copied},
};

class install_with : public failing_install, public testing::WithParamInterface<fault> {
protected:
    install_with()
    {
        add_product();
        GetParam().arrange(*this);
    }

    /// The run fails and says so; true if it also says why, to those who explain it.
    void expect_failure()
    {
        const test::log_capture log;
        EXPECT_FALSE(run());
        EXPECT_TRUE(log.contains("Installer_error."));
        EXPECT_TRUE(log.contains("Failed, install_error: Unknown exception"));
        EXPECT_FALSE(log.contains("Finished install."));
        if (*GetParam().line != '\0') {
            EXPECT_TRUE(log.contains(GetParam().line));
        }
        const auto& failure = observer_.failure();
        EXPECT_TRUE(failure && !failure->where.empty() && !failure->reason.empty());
    }
};

TEST_P(install_with, leaves_on_a_fresh_machine_what_was_copied_and_no_entry_in_the_systems_list)
{
    expect_failure();
    EXPECT_EQ(names(), GetParam().left);
    EXPECT_EQ(uninstall_values(), "");
}

TEST_P(install_with, brings_an_older_installation_back_byte_for_byte)
{
    add_old_installation();
    const std::string before = programs_exactly();
    expect_failure();
    EXPECT_EQ(programs_exactly(), before);
}

TEST_P(install_with, keeps_the_older_installation_aside_where_its_return_fails)
{
    add_old_installation();
    const std::string before = programs_exactly();
    at("remove_all(" + to_utf8(app_) + "\\) returned",
       [this] { test::write_file(app_ / "in the way", "x"); });
    expect_failure();
    EXPECT_EQ(names().substr(0, 11), "in the way ");
    expect_aside(before);
}

INSTANTIATE_TEST_SUITE_P(each, install_with, testing::ValuesIn(faults),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(failing_install, goes_on_without_a_folder_that_cannot_be_read_if_the_observer_says_so)
{
    add_product();
    faults[2].arrange(*this);
    observer_.answer = nullptr;
    EXPECT_TRUE(run());
    EXPECT_EQ(observer_.events(), "installing: a.txt\nfailed_to_copy: app, ${APP_INSTALL_PATH}\n"
                                  "installing: uninstaller.exe\ninstalling: single.txt\n");
}

TEST_F(failing_install, over_a_folder_that_the_system_knows_nothing_of_leaves_the_mix)
{
    add_product();
    lose_source("single.txt");
    test::write_file(app_ / "a.txt", "old a");
    test::write_file(app_ / "other.txt", "other");
    EXPECT_FALSE(run());
    EXPECT_EQ(test::read_file(app_ / "a.txt"), "new a");
    EXPECT_EQ(test::read_file(app_ / "other.txt"), "other");
}

// Kept so: the back-up's name is set although nothing was moved there, so that the way back removes
// the old folder and finds nothing to put in its place.
TEST_F(failing_install, loses_an_older_installation_that_could_not_be_moved_aside)
{
    add_product();
    lose_source("single.txt");
    add_old_installation();
    auto in_use = std::make_unique<test::locked_path>(app_);
    at("Installing path: ", [&in_use] { in_use.reset(); });
    EXPECT_FALSE(run());
    EXPECT_EQ(programs(), "");
}

TEST_F(failing_install, goes_on_into_an_older_installation_that_could_not_be_moved_aside)
{
    add_product();
    add_old_installation();
    auto in_use = std::make_unique<test::locked_path>(app_);
    at("Installing path: ", [&in_use] { in_use.reset(); });
    EXPECT_TRUE(run());
    EXPECT_EQ(test::read_file(app_ / "a.txt"), "new a");
    EXPECT_FALSE(misc::missing(app_ / "old\\deep\\binary"));
    EXPECT_EQ(backup(), misc::path());
}

/// For failures that nothing in the engine catches: the older installation stays aside, whole.
class install_that_throws : public failing_install {
protected:
    template <class Error> void expect_thrown()
    {
        add_old_installation();
        const std::string before = programs_exactly();
        EXPECT_THROW(run(), Error);
        unreadable_.reset();
        expect_aside(before);
        EXPECT_EQ(uninstall_values(), "");
    }
};

TEST_F(install_that_throws, if_the_folder_cannot_be_made)
{
    add_product();
    at("Installing path: ", [this] { test::write_file(app_, "in the way"); });
    expect_thrown<misc::filesystem_error>();
}

TEST_F(install_that_throws, if_a_source_cannot_be_read_for_the_uninstall_data)
{
    add_product();
    make_source_unreadable("app", "Creating uninstall spec.");
    expect_thrown<misc::filesystem_error>();
}

TEST_F(install_that_throws, if_a_variable_is_missing)
{
    package_.var("APP_NAME", to_utf8(name_)).var("APP_INSTALL_PATH", to_utf8(app_));
    expect_thrown<std::invalid_argument>();
}

TEST_F(install_that_throws, if_a_shortcut_has_no_package_to_be_recorded_in)
{
    add_vars();
    package_.add("shortcuts", "<shortcut location='" + to_utf8(folder_ / "menu\\App") + "'/>");
    expect_thrown<std::out_of_range>();
}

TEST_F(install_that_throws, if_a_value_may_not_be_deleted)
{
    add_vars();
    misc::create_key(key_.path());
    installation::spec s = spec();
    s.reg_keys = {{key_.path(), "v", U"", {0}}};
    add_old_installation();
    const test::denied_key denied(key_.path());
    EXPECT_THROW(core::install(s, observer_), misc::registry_error);
    EXPECT_FALSE(backup().empty());
}

} // namespace
} // namespace nrd::installer::core
