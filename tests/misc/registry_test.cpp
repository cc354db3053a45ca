#include "misc/registry.h"

#include "misc/planned_changes.h"
#include "support/denied_key.h"
#include "support/registry_text.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace nrd::misc {

namespace {

using test::registry_text;
using test::scratch_key;

using names = std::vector<text32>;

/// The code of the error that `access` throws; -1 if it throws none.
template <class Access> int error_code_of(Access access)
{
    try {
        access();
    } catch (const registry_error& error) {
        return error.code();
    }
    return -1;
}

TEST(registry, what_was_written_is_read_back)
{
    const scratch_key key;
    EXPECT_FALSE(key_exists(key.path()));
    EXPECT_TRUE(create_key(key / U"a\\b"));
    EXPECT_TRUE(create_key(key / U"a\\b"));
    EXPECT_TRUE(set_string_value(key.path(), U"", U"default"));
    EXPECT_TRUE(set_string_value(key / U"a", U"\u0416 name", U"\"C:\\\x1F600\" 100% ${X}"));
    EXPECT_TRUE(set_string_value(key / U"A", U"\u0436 NAME", U"\u4E2D\nsecond line"));
    EXPECT_TRUE(set_string_value(key / U"a", U"empty", U""));
    EXPECT_TRUE(value_exists(key / U"a", U"Empty"));
    EXPECT_FALSE(value_exists(key / U"a", U"absent"));
    EXPECT_FALSE(value_exists(key / U"absent", U"empty"));
    EXPECT_EQ(read_value(key / U"a", U"absent"), U"");
    EXPECT_EQ(read_value(key / U"absent", U"x"), U"");
    EXPECT_EQ(registry_text(key.path()),
              "(default) = default\n[a]\nempty = \n\u0416 name = \u4E2D\nsecond line\n[a\\b]\n");
}

TEST(registry, a_path_may_begin_with_one_of_two_roots)
{
    const scratch_key key;
    const text32 below_root = key.path().substr(key.path().find(U'\\') + 1);
    create_key(below_root + U"\\x");
    EXPECT_TRUE(key_exists(U"HKEY_LOCAL_MACHINE\\" + below_root + U"\\X"));
    EXPECT_TRUE(key_exists(U"HKEY_LOCAL_MACHINE"));
    EXPECT_TRUE(key_exists(U"HKEY_CLASSES_ROOT\\"));
    EXPECT_TRUE(key_exists(U""));
    // Any other root is taken for a subkey.
    const text32 odd = U"HKEY_CURRENT_USER\\" + below_root;
    EXPECT_FALSE(key_exists(U"HKEY_CURRENT_USER"));
    EXPECT_FALSE(key_exists(U"hkey_local_machine\\" + below_root));
    EXPECT_THROW(set_string_value(odd, U"x", U"y"), registry_error);
    // A root itself is never deleted.
    EXPECT_FALSE(delete_key(U"HKEY_CLASSES_ROOT"));
}

TEST(registry, separators_at_the_end_change_nothing_several_count_as_one_and_none_may_come_first)
{
    const scratch_key key;
    const text32 below_root = key.path().substr(key.path().find(U'\\') + 1);
    for (const bool only_planned : {true, false}) {
        const auto plan = only_planned ? std::make_unique<planned_changes>() : nullptr;
        EXPECT_TRUE(create_key(key / U"a\\\\b\\\\\\c\\\\"));
        EXPECT_TRUE(set_string_value(key / U"a\\b\\", U"x", U"1"));
        EXPECT_EQ(read_value(key / U"\\a\\\\b", U"x"), U"1");
        EXPECT_EQ(registry_text(key.path() + U"\\"), "[a]\n[a\\b]\nx = 1\n[a\\b\\c]\n");
        EXPECT_TRUE(delete_key(key / U"a\\\\b\\"));
        EXPECT_FALSE(key_exists(key / U"a\\b"));
        for (const text32& path :
             {U"\\" + below_root + U"\\a", U"HKEY_LOCAL_MACHINE\\\\" + below_root + U"\\a"}) {
            EXPECT_FALSE(key_exists(path));
            EXPECT_FALSE(create_key(path));
            EXPECT_FALSE(set_string_value(path, U"x", U"1"));
            EXPECT_EQ(read_value(path, U"x"), U"");
            EXPECT_FALSE(delete_key(path));
        }
        EXPECT_EQ(registry_text(key.path()), "[a]\n");
    }
}

TEST(registry, a_text_ends_at_its_first_zero)
{
    const scratch_key key;
    create_key(key.path());
    EXPECT_TRUE(set_string_value(key.path(), U"x", text32(U"a\0b\0", 4)));
    EXPECT_TRUE(set_string_value(key.path(), U"y", text32(U"\0b", 2)));
    EXPECT_EQ(read_value(key.path(), U"x"), U"a");
    EXPECT_EQ(read_values(key.path(), {U"x", U"y"}),
              (std::map<text32, text32>{{U"x", U"a"}, {U"y", U""}}));
}

TEST(registry, values_are_read_up_to_1023_units)
{
    const scratch_key key;
    create_key(key.path());
    const text32 fits(1023, U'x');
    const text32 pairs(511, U'\x1F600');
    EXPECT_TRUE(set_string_value(key.path(), U"fits", fits));
    EXPECT_TRUE(set_string_value(key.path(), U"long", fits + U"x"));
    EXPECT_TRUE(set_string_value(key.path(), U"pairs", pairs));
    EXPECT_TRUE(set_string_value(key.path(), U"long pairs", pairs + U"\x1F600"));
    EXPECT_EQ(read_value(key.path(), U"fits"), fits);
    EXPECT_EQ(read_value(key.path(), U"long"), U"");
    EXPECT_EQ(read_value(key.path(), U"pairs"), pairs);
    EXPECT_EQ(read_value(key.path(), U"long pairs"), U"");
    EXPECT_TRUE(value_exists(key.path(), U"long"));
}

TEST(registry, several_values_are_read_at_once)
{
    const scratch_key key;
    create_key(key.path());
    const text32 path = U"C:\\" + text32(900, U'p');
    set_string_value(key.path(), U"Name", U"Suite");
    set_string_value(key.path(), U"Path", path);
    set_string_value(key.path(), U"Data", path);
    using values = std::map<text32, text32>;
    EXPECT_EQ(read_values(key.path(), {U"Name", U"Path", U"data"}),
              (values{{U"Name", U"Suite"}, {U"Path", path}, {U"data", path}}));
    EXPECT_EQ(read_values(key.path(), {U"Name", U"absent", U"Path"}),
              (values{{U"Name", U"Suite"}, {U"absent", U""}, {U"Path", path}}));
    EXPECT_EQ(read_values(key / U"absent", {U"Name"}), values());
    EXPECT_EQ(read_values(key.path(), {}), values());
}

TEST(registry, names_are_listed_whole_and_subkeys_in_order)
{
    const scratch_key key;
    const text32 wide(200, U'\u4E2D');
    for (const text32& name : names{U"b", U"_x", U"A", U"Z", U"\u00E9", wide, U"a b"}) {
        create_key(key / name);
    }
    EXPECT_EQ(subkey_names(key.path()), names({U"A", U"a b", U"b", U"Z", U"_x", U"\u00E9", wide}));
    set_string_value(key.path(), U"Some Value", U"x");
    set_string_value(key.path(), wide, U"x");
    names values = value_names(key.path());
    std::sort(values.begin(), values.end());
    EXPECT_EQ(values, names({U"Some Value", wide}));
    EXPECT_EQ(subkey_names(key / U"absent"), names());
    EXPECT_EQ(value_names(key / U"absent"), names());
}

TEST(registry, a_value_goes_alone_or_with_its_empty_key)
{
    const scratch_key key;
    create_key(key / U"a\\sub");
    create_key(key / U"b");
    for (const text32& each : names{key / U"a", key / U"b"}) {
        set_string_value(each, U"x", U"1");
        set_string_value(each, U"y", U"2");
    }
    EXPECT_FALSE(delete_value(key / U"a", U"absent", 1));
    EXPECT_FALSE(delete_value(key / U"absent", U"x", 1));
    EXPECT_TRUE(delete_value(key / U"a", U"X", 1));
    EXPECT_TRUE(delete_value(key / U"a", U"y", 1)); // a subkey is left
    EXPECT_TRUE(delete_value(key / U"b", U"x", 1)); // a value is left
    EXPECT_EQ(registry_text(key.path()), "[a]\n[a\\sub]\n[b]\ny = 2\n");
    EXPECT_TRUE(delete_value(key / U"b", U"y", 0));
    EXPECT_TRUE(key_exists(key / U"b"));
    set_string_value(key / U"b", U"y", U"2");
    EXPECT_TRUE(delete_value(key / U"b", U"y", 1));
    EXPECT_FALSE(key_exists(key / U"b"));
}

TEST(registry, a_key_goes_with_all_that_is_below_it)
{
    const scratch_key key;
    create_key(key / U"a\\b\\c");
    create_key(key / U"ab");
    set_string_value(key / U"a\\b", U"x", U"1");
    EXPECT_TRUE(delete_key(key / U"A"));
    EXPECT_FALSE(delete_key(key / U"a"));
    EXPECT_EQ(registry_text(key.path()), "[ab]\n");
}

TEST(registry, a_denied_access_is_an_error_and_nothing_else_is)
{
    const scratch_key key;
    create_key(key / U"denied\\below");
    set_string_value(key / U"denied", U"x", U"1");
    const text32 denied = key / U"denied";
    {
        const test::denied_key nobody(denied);
        const std::function<void()> accesses[] = {
            [&] { key_exists(denied); },
            [&] { value_exists(denied, U"x"); },
            [&] { read_value(denied, U"x"); },
            [&] { read_values(denied, {U"x"}); },
            [&] { value_names(denied); },
            [&] { subkey_names(denied); },
            [&] { create_key(denied); },
            [&] { set_string_value(denied, U"x", U"2"); },
            [&] { delete_key(denied); },
            [&] { delete_key(key.path()); },
            [&] { delete_value(denied, U"x", 0); },
        };
        for (const auto& access : accesses) {
            EXPECT_EQ(error_code_of(access), registry_error::access_denied) << &access - accesses;
        }
        EXPECT_EQ(error_code_of([&] { set_string_value(key / U"absent", U"x", U"y"); }),
                  registry_error::key_not_found);
        EXPECT_EQ(subkey_names(key.path()), names({U"denied"}));
        try {
            key_exists(denied);
        } catch (const nrd::exception& error) {
            EXPECT_EQ(error.what(), "Access to the registry key is denied: " + to_utf8(denied));
        }
    }
    EXPECT_EQ(registry_text(key.path()), "[denied]\nx = 1\n[denied\\below]\n");
}

} // namespace

} // namespace nrd::misc
