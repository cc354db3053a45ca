#include "misc/planned_changes.h"

#include "misc/registry.h"
#include "misc/shell.h"
#include "support/denied_key.h"
#include "support/file_content.h"
#include "support/folder_text.h"
#include "support/locked_path.h"
#include "support/registry_text.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace nrd::misc {

namespace {

using test::folder_text;
using test::registry_text;
using test::scratch_key;
using test::temp_folder;
using test::write_file;

/// The record, a line for each change: kind, source, target, key, name, data before and after.
std::string list_text(const planned_changes& plan, const path& folder)
{
    constexpr const char* kinds[] = {"create_folder", "copy_file",       "write_file", "rename",
                                     "remove",        "create_shortcut", "create_key", "set_value",
                                     "delete_key",    "delete_value"};
    const std::size_t shown_from = to_utf8(folder).size();
    const auto below = [&](const path& p) {
        return p.empty() ? std::string() : " " + to_utf8(p).substr(shown_from);
    };
    std::string text;
    for (const planned_change& change : plan.list()) {
        text += kinds[static_cast<std::size_t>(change.kind)];
        text += below(change.source) + below(change.target);
        text += change.bytes != 0 ? " " + std::to_string(change.bytes) : "";
        text += change.replaces ? " replaces" : "";
        const std::size_t key_name = change.key.rfind(U'\\') + 1;
        text += change.key.empty() ? "" : " [" + to_utf8(change.key.substr(key_name)) + "]";
        text += change.name.empty() ? "" : " " + to_utf8(change.name);
        text += change.before ? " was " + to_utf8(change.before->text) : "";
        text += change.data.empty() ? "" : " is " + to_utf8(change.data);
        text += "\n";
    }
    return text;
}

TEST(planned_changes, are_recorded_while_the_disk_stays_as_it_is)
{
    const temp_folder folder;
    write_file(folder / "app\\old", "123");
    write_file(folder / "app\\sub\\deep", "4");
    write_file(folder / "from", "12345");
    const std::string before = folder_text(folder.path());
    error_code ec;
    {
        const planned_changes plan;
        EXPECT_EQ(planned_changes::active(), &plan);
        rename(folder / "app", folder / "app_backup", ec);
        create_directories(folder / "app\\");
        copy_file(folder / "from", folder / "app\\old", ec);
        copy_file(folder / "from", folder / "from2", ec);
        copy_file(folder / "from2", folder / "FROM", ec);
        EXPECT_FALSE(open_for_writing(folder / "app\\x").is_open());
        EXPECT_FALSE(create_shortcut(to_text32(folder / "link"), U"C:\\goal").empty());
        remove_all(folder / "app_backup", ec);
        remove(folder / "from", ec);
        EXPECT_EQ(list_text(plan, folder.path()), "rename \\app \\app_backup\n"
                                                  "create_folder \\app\\\n"
                                                  "copy_file \\from \\app\\old 5\n"
                                                  "copy_file \\from \\from2 5\n"
                                                  "copy_file \\from2 \\FROM 5 replaces\n"
                                                  "write_file \\app\\x\n"
                                                  "create_shortcut \\link.lnk [goal]\n"
                                                  "remove \\app_backup\n"
                                                  "remove \\from\n");
        EXPECT_THROW(planned_changes(), std::logic_error);
    }
    EXPECT_EQ(folder_text(folder.path()), before);
}

/// The names of all that the program believes to be in a folder.
std::string believed(const path& folder)
{
    std::string text;
    for (const path& entry : directory_entries(folder)) {
        const std::string name = to_utf8(entry.filename());
        text += is_directory(entry) ? name + "(" + believed(entry) + ") " : name + " ";
    }
    return text;
}

TEST(planned_changes, later_questions_are_answered_as_if_all_was_done)
{
    const temp_folder folder;
    write_file(folder / "App\\Old", "123");
    write_file(folder / "App\\sub\\deep", "4");
    write_file(folder / "from", "12345");
    error_code ec;
    const planned_changes plan;

    rename(folder / "app", folder / "moved", ec);
    EXPECT_TRUE(missing(folder / "App\\Old"));
    EXPECT_THROW(directory_entries(folder / "APP"), filesystem_error);
    EXPECT_EQ(believed(folder.path()), "from moved(Old sub(deep ) ) ");
    EXPECT_EQ(file_size(folder / "MOVED\\old"), 3U);
    EXPECT_EQ(count_files_below(folder / "moved"), 2U);

    create_directories(folder / "App\\new\\deeper\\");
    create_directories(folder / "App\\new\\Other");
    copy_file(folder / "FROM", folder / "app\\new/copy", ec);
    EXPECT_EQ(believed(folder.path()),
              "App(new(copy deeper() Other() ) ) from moved(Old sub(deep ) ) ");
    EXPECT_EQ(file_size(folder / "app\\new\\copy"), 5U);
    EXPECT_TRUE(is_directory(folder / "app\\NEW"));

    remove_all(folder / "app\\new", ec);
    remove(folder / "from", ec);
    EXPECT_EQ(believed(folder.path()), "App() moved(Old sub(deep ) ) ");
    EXPECT_EQ(file_size(folder / "from"), 0U);
    rename(folder / "from", folder / "x", ec);
    EXPECT_EQ(ec, boost::system::errc::no_such_file_or_directory);
    copy_file(folder / "from", folder / "x", ec);
    EXPECT_EQ(ec, boost::system::errc::no_such_file_or_directory);
    EXPECT_TRUE(missing(folder / "x"));
}

/// What a real change is refused for, a planned one is too, and is not in the record.
TEST(planned_changes, are_refused_where_real_ones_would_be)
{
    const temp_folder folder;
    write_file(folder / "from", "new");
    write_file(folder / "file", "x");
    write_file(folder / "dir\\in use", "old");
    const test::locked_path locked(folder / "dir\\in use");
    const auto refusals = [&folder] {
        const auto at = [&folder](const char* name) { return folder / name; };
        std::string text;
        error_code ec;
        const auto tell = [&](const char* change) {
            text += ec ? std::string(change) + " " : std::string();
        };
        copy_file(at("from"), at("dir\\in use"), ec);
        tell("in-use");
        copy_file(at("from"), at("file\\x"), ec);
        tell("below-file");
        copy_file(at("from"), at("dir"), ec);
        tell("onto-folder");
        copy_file(at("from"), at("dir\\beside"), ec);
        tell("beside");
        create_directories(at("file\\x\\y"), ec);
        tell("folder-below-file");
        create_directories(at("file"), ec);
        tell("folder-onto-file");
        create_directories(at("new\\x"), ec);
        tell("folder");
        copy_file(at("from"), at("new\\x\\y"), ec);
        tell("into-new");
        rename(at("new\\x"), at("new\\z"), ec);
        tell("rename");
        if (open_for_writing(at("dir\\in use")).is_open()) {
            text += "written";
        }
        if (create_shortcut(to_text32(at("file\\link")), U"C:\\goal").empty()) {
            text += "shortcut";
        }
        return text;
    };
    std::string planned;
    {
        const planned_changes plan;
        planned = refusals();
        EXPECT_EQ(list_text(plan, folder.path()), "copy_file \\from \\dir\\beside 3\n"
                                                  "create_folder \\new\\x\n"
                                                  "copy_file \\from \\new\\x\\y 3\n"
                                                  "rename \\new\\x \\new\\z\n");
    }
    EXPECT_EQ(planned, "in-use below-file onto-folder folder-below-file "
                       "folder-onto-file shortcut");
    EXPECT_EQ(refusals(), planned);
}

TEST(planned_changes, are_refused_by_denied_keys_as_real_ones_are)
{
    const scratch_key key;
    create_key(key / U"Denied\\Sub");
    set_string_value(key / U"Denied", U"x", U"1");
    const test::denied_key denied(key / U"Denied");
    const auto refused = [](const auto& change) {
        try {
            change();
        } catch (const registry_error& error) {
            return error.code() == registry_error::access_denied;
        }
        return false;
    };
    for (const bool only_planned : {true, false}) {
        const auto plan = only_planned ? std::make_unique<planned_changes>() : nullptr;
        EXPECT_TRUE(refused([&] { create_key(key / U"Denied"); }));
        EXPECT_TRUE(refused([&] { set_string_value(key / U"Denied", U"x", U"2"); }));
        EXPECT_TRUE(refused([&] { delete_value(key / U"Denied", U"x", 0); }));
        EXPECT_TRUE(refused([&] { delete_key(key.path()); }));
        EXPECT_TRUE(plan == nullptr || plan->list().empty());
    }
}

TEST(planned_changes, hold_for_the_registry_as_well)
{
    const scratch_key key;
    create_key(key / U"Old\\Sub");
    set_string_value(key.path(), U"kept", U"1");
    set_string_value(key.path(), U"Changed", U"2");
    set_string_value(key / U"Old", U"inside", U"3");
    const std::string before = registry_text(key.path());
    {
        const planned_changes plan;
        EXPECT_TRUE(set_string_value(key.path(), U"changed", U"22"));
        EXPECT_TRUE(delete_value(key.path(), U"kept", 1));
        EXPECT_THROW(set_string_value(key / U"New", U"x", U"y"), registry_error);
        EXPECT_TRUE(create_key(key / U"New\\Deep"));
        EXPECT_TRUE(set_string_value(key / U"new", U"x", U"y"));
        EXPECT_EQ(registry_text(key.path()),
                  "Changed = 22\n[New]\nx = y\n[New\\Deep]\n[Old]\ninside = 3\n[Old\\Sub]\n");

        // A key that is made again has nothing of what it had.
        EXPECT_TRUE(delete_key(key / U"OLD"));
        EXPECT_FALSE(key_exists(key / U"Old\\Sub"));
        EXPECT_FALSE(delete_key(key / U"Old\\Sub"));
        EXPECT_FALSE(value_exists(key / U"Old", U"inside"));
        EXPECT_TRUE(create_key(key / U"Old"));
        EXPECT_EQ(registry_text(key / U"Old"), "");
        EXPECT_TRUE(set_string_value(key / U"Old", U"inside", U"33"));
        EXPECT_EQ(read_values(key / U"Old", {U"inside", U"absent"}),
                  (std::map<text32, text32>{{U"inside", U"33"}, {U"absent", U""}}));
        EXPECT_TRUE(read_values(key / U"Old\\Sub", {U"x"}).empty());

        // With its last value a key goes too, if that is asked for.
        EXPECT_TRUE(delete_value(key / U"Old", U"inside", 1));
        EXPECT_FALSE(key_exists(key / U"Old"));
        const std::string top = "[" + to_utf8(key.path().substr(key.path().rfind(U'\\') + 1)) + "]";
        EXPECT_EQ(list_text(plan, path()), "set_value " + top + " changed was 2 is 22\n" +
                                               "delete_value " + top +
                                               " kept was 1\n"
                                               "create_key [Deep]\n"
                                               "set_value [new] x is y\n"
                                               "delete_key [OLD]\n"
                                               "create_key [Old]\n"
                                               "set_value [Old] inside is 33\n"
                                               "delete_value [Old] inside was 33\n"
                                               "delete_key [Old]\n");
    }
    EXPECT_EQ(registry_text(key.path()), before);
}

} // namespace

} // namespace nrd::misc
