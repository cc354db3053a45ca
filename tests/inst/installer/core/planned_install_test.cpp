#include "inst/installer/core/engine_fixture.h"
#include "inst/installer/core/path_index.h"
#include "misc/file_system.h"
#include "misc/planned_changes.h"
#include "misc/registry.h"
#include "support/denied_key.h"
#include "support/file_content.h"
#include "support/locked_path.h"

#include <set>

// A run whose changes are only planned: it changes nothing, and tells what a real one does.

namespace nrd::installer::core {
namespace {

using misc::change_kind;
using misc::to_utf8;

class planned_install : public engine {
protected:
    /// The files and values that a plan leaves, told as those of a machine below.
    static std::set<std::string> planned(const std::vector<misc::planned_change>& changes)
    {
        std::set<std::string> all;
        for (const misc::planned_change& each : changes) {
            if (each.kind == change_kind::copy_file || each.kind == change_kind::write_file ||
                each.kind == change_kind::create_shortcut) {
                all.insert(to_utf8(each.target));
            } else if (each.kind == change_kind::set_value) {
                all.insert(to_utf8(each.key + U" : " + each.name + U" = " + each.data));
            }
        }
        return all;
    }

    static void add_files(std::set<std::string>& all, const misc::path& p)
    {
        if (!misc::is_directory(p)) {
            if (!misc::missing(p)) {
                all.insert(to_utf8(p));
            }
            return;
        }
        for (const misc::path& entry : misc::directory_entries(p)) {
            add_files(all, entry);
        }
    }

    /// Everything that an install makes, but for the folders.
    [[nodiscard]] std::set<std::string> machine() const
    {
        std::set<std::string> all;
        add_files(all, app_.parent_path());
        add_files(all, folder_ / "menu");
        add_files(all, path_index_file());
        for (const misc::text32& key :
             {U"HKEY_LOCAL_MACHINE\\" + misc::uninstall_key(name_), key_ / U"Settings"}) {
            for (const misc::text32& name : misc::value_names(key)) {
                all.insert(to_utf8(key + U" : " + name + U" = " + misc::read_value(key, name)));
            }
        }
        return all;
    }

    /// The plan changes nothing, and the run that follows does what it says.
    void expect_plan_to_hold()
    {
        const auto before = machine();
        std::set<std::string> plan;
        {
            const misc::planned_changes changes;
            EXPECT_TRUE(run());
            plan = planned(changes.list());
        }
        EXPECT_EQ(machine(), before);
        const std::string events = observer_.events();
        EXPECT_TRUE(run());
        EXPECT_EQ(observer_.events(), events + events);
        EXPECT_EQ(plan, machine());
    }
};

TEST_F(planned_install, holds_on_a_fresh_machine)
{
    add_product();
    expect_plan_to_hold();
}

TEST_F(planned_install, holds_over_an_older_installation)
{
    add_product();
    add_old_installation();
    misc::set_string_value(misc::uninstall_key(name_), U"Publisher", U"Old");
    expect_plan_to_hold();
}

TEST_F(planned_install, holds_for_a_package_without_an_uninstaller)
{
    add_vars();
    package_.file("a.txt", "a");
    add_fileset("a.txt", "${APP_INSTALL_PATH}");
    expect_plan_to_hold();
}

TEST_F(planned_install, holds_where_filesets_build_on_each_other)
{
    add_product();
    add_fileset("single.txt", "${APP_INSTALL_PATH}lib"); // into the folder, as it will be there
    add_fileset("single.txt", "${APP_INSTALL_PATH}a.txt");
    package_.add("packages", "<package name='second' os='win' bits='all'><filesets>"
                             "<fileset in='single.txt' out='${APP_INSTALL_PATH}no/x'"
                             " create_folders='false'/>"
                             "<fileset in='single.txt' out='${APP_INSTALL_PATH}extra/x'"
                             " create_folders='false'/></filesets></package>");
    expect_plan_to_hold();
}

TEST_F(planned_install, stops_where_the_real_one_does)
{
    add_product();
    const misc::path in_use = app_ / "a.txt";
    const misc::path in_the_way = app_ / "extra";
    const auto stops_at = [this](const misc::path& where) {
        const auto before = machine();
        {
            const misc::planned_changes changes;
            EXPECT_FALSE(run());
        }
        EXPECT_EQ(machine(), before);
        ASSERT_TRUE(observer_.failure());
        const installation::failure_decision planned = *observer_.failure();
        EXPECT_FALSE(run());
        EXPECT_EQ(to_utf8(planned.where), to_utf8(where));
        EXPECT_EQ(to_utf8(observer_.failure()->where), to_utf8(where));
        EXPECT_FALSE(planned.reason.empty());
    };
    test::write_file(in_use, "old");
    {
        const test::locked_path locked(in_use);
        stops_at(in_use);
    }
    test::write_file(in_the_way, "a file where a folder has to be");
    stops_at(in_the_way);
}

TEST_F(planned_install, goes_on_without_a_refused_key_as_the_real_one_does)
{
    add_product();
    misc::create_key(key_ / U"Settings");
    const test::denied_key denied(key_ / U"Settings");
    std::size_t changed_values = 0;
    {
        const misc::planned_changes changes;
        EXPECT_TRUE(run());
        for (const misc::planned_change& each : changes.list()) {
            changed_values += each.kind == change_kind::set_value ? 1 : 0;
            EXPECT_EQ(each.key.find(key_.path()), each.key.npos);
        }
    }
    const std::string events = observer_.events();
    EXPECT_TRUE(run());
    EXPECT_EQ(observer_.events(), events + events);
    EXPECT_EQ(changed_values, misc::value_names(misc::uninstall_key(name_)).size());
}

} // namespace
} // namespace nrd::installer::core
