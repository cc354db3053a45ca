#include "misc/file_system.h"

#include "support/file_content.h"
#include "support/folder_text.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace nrd::misc {

namespace {

namespace errc = boost::system::errc;
using test::folder_text;
using test::read_file;
using test::temp_folder;
using test::write_file;

/// The operation's result, of those that give it in their last argument.
template <class Operation, class... Arguments>
error_code result_of(Operation operation, const Arguments&... arguments)
{
    error_code ec = make_error_code(errc::io_error);
    operation(arguments..., ec);
    return ec;
}

error_code creating(const path& p)
{
    return result_of([](const path& folder, error_code& ec) { create_directories(folder, ec); }, p);
}

TEST(file_system, an_empty_path_names_nothing)
{
    const path nothing;
    EXPECT_TRUE(missing(nothing));
    EXPECT_FALSE(is_directory(nothing));
    EXPECT_EQ(file_size(nothing), 0U);
    EXPECT_EQ(to_utf8(absolute(nothing)), "");
    EXPECT_TRUE(creating(nothing));
    EXPECT_FALSE(open_for_reading(nothing).is_open());
    EXPECT_THROW(directory_entries(nothing), filesystem_error);
    EXPECT_THROW(canonical(nothing), filesystem_error);
    EXPECT_THROW(current_path(nothing), filesystem_error);
}

TEST(file_system, entries_come_in_the_order_of_their_capitals)
{
    const temp_folder folder;
    for (const char* const name : {"b", "_x", "Z", "a b", "A", "\u00E9", "\u00C8"}) {
        write_file(folder / name, "");
    }
    EXPECT_EQ(folder_text(folder.path()), "A: \na b: \nb: \nZ: \n_x: \n\u00C8: \n\u00E9: \n");
}

TEST(file_system, a_folder_that_cannot_be_read_is_named_in_the_error)
{
    const temp_folder folder;
    write_file(folder / "file", "");
    for (const char* const name : {"missing", "file"}) {
        try {
            directory_entries(folder / name);
            ADD_FAILURE() << name;
        } catch (const filesystem_error& error) {
            const std::string place = to_utf8(folder / name);
            const std::string text = describe(error);
            EXPECT_TRUE(text.starts_with("reading the folder " + place + ": ")) << text;
            EXPECT_GT(text.size(), place.size() + 25) << text;
        }
    }
}

TEST(file_system, folders_are_made_with_those_above_them)
{
    const temp_folder folder;
    EXPECT_FALSE(creating(folder / "a\\b/c"));
    EXPECT_FALSE(creating(folder / "A\\B\\d\\"));
    EXPECT_FALSE(creating(folder / "a"));
    write_file(folder / "a\\file", "");
    EXPECT_TRUE(creating(folder / "a\\file"));
    EXPECT_TRUE(creating(folder / "a\\file\\below"));
    const error_code no_name = creating(folder / "what?");
    EXPECT_TRUE(no_name && no_name != errc::permission_denied) << no_name;
    EXPECT_EQ(folder_text(folder.path()), "a\\\na\\b\\\na\\b\\c\\\na\\b\\d\\\na\\file: \n");
}

TEST(file_system, a_copy_replaces_what_is_there)
{
    const temp_folder folder;
    write_file(folder / "from", "new");
    write_file(folder / "to", "something older");
    EXPECT_FALSE(result_of(copy_file, folder / "from", folder / "to"));
    EXPECT_FALSE(result_of(copy_file, folder / "from", folder / "fresh"));
    EXPECT_EQ(result_of(copy_file, folder / "missing", folder / "to"),
              errc::no_such_file_or_directory);
    EXPECT_EQ(result_of(copy_file, folder / "from", folder / "no\\folder"),
              errc::no_such_file_or_directory);
    EXPECT_EQ(folder_text(folder.path()), "fresh: new\nfrom: new\nto: new\n");
}

TEST(file_system, renaming_moves_files_and_whole_folders)
{
    const temp_folder folder;
    write_file(folder / "a\\sub\\file", "1");
    write_file(folder / "old", "2");
    write_file(folder / "new", "3");
    EXPECT_FALSE(result_of(rename, folder / "a", folder / "b"));
    EXPECT_FALSE(result_of(rename, folder / "old", folder / "new"));
    EXPECT_EQ(result_of(rename, folder / "missing", folder / "x"), errc::no_such_file_or_directory);
    EXPECT_TRUE(result_of(rename, folder / "new", folder / "no\\folder"));
    EXPECT_EQ(folder_text(folder.path()), "b\\\nb\\sub\\\nb\\sub\\file: 1\nnew: 2\n");
}

TEST(file_system, removal_takes_read_only_files_along)
{
    const temp_folder folder;
    for (const char* const name : {"tree\\a", "tree\\sub\\b", "tree\\sub\\c", "single", "kept"}) {
        write_file(folder / name, "x");
        test::make_read_only(folder / name);
    }
    EXPECT_FALSE(result_of(remove, folder / "single"));
    EXPECT_FALSE(result_of(remove, folder / "missing"));
    EXPECT_TRUE(result_of(remove, folder / "tree"));
    EXPECT_FALSE(result_of(remove_all, folder / "missing"));
    EXPECT_FALSE(result_of(remove_all, folder / "TREE"));
    EXPECT_EQ(folder_text(folder.path()), "kept: x\n");
}

TEST(file_system, names_are_found_whatever_their_case)
{
    const temp_folder folder;
    write_file(folder / "Sub\\\u00C4 File.TXT", "here");
    EXPECT_EQ(read_file(folder / "sUB/\u00E4 fILE.txt"), "here");
    EXPECT_EQ(file_size(folder / "SUB\\\u00C4 FILE.TXT"), 4U);
    write_file(folder / "SUB\\second", "there");
    EXPECT_FALSE(result_of(copy_file, folder / "sub\\SECOND", folder / "Sub\\\u00E4 file.txt"));
    EXPECT_EQ(folder_text(folder.path()),
              "Sub\\\nSub\\second: there\nSub\\\u00C4 File.TXT: there\n");
}

TEST(file_system, dots_are_taken_out_of_a_path_before_it_is_looked_up)
{
    const temp_folder folder;
    write_file(folder / "file", "x");
    EXPECT_FALSE(missing(folder / "nothing\\..\\.\\file"));
    EXPECT_FALSE(missing(folder / "\\..\\\\..\\..\\..\\..\\..\\..\\..\\..\\..\\Users"));
    EXPECT_TRUE(missing(folder / "nothing\\file"));
}

TEST(file_system, a_relative_path_counts_from_the_current_directory)
{
    const temp_folder folder;
    write_file(folder / "here\\file", "x");
    const std::string here = to_utf8(folder / "here");
    const std::string before = to_utf8(current_path());
    {
        const scoped_current_path inside(folder / "here");
        EXPECT_EQ(to_utf8(current_path()), here);
        EXPECT_EQ(to_utf8(absolute(to_path("file"))), here + "\\file");
        EXPECT_EQ(to_utf8(absolute(to_path("C:file"))), here + "\\file");
        EXPECT_EQ(to_utf8(absolute(to_path("D:file"))), "D:\\file");
        EXPECT_EQ(to_utf8(absolute(to_path("\\file"))), "C:\\file");
        for (const char* const text : {"file", "C:file", ".\\FILE", "..\\here\\file"}) {
            EXPECT_FALSE(missing(to_path(text))) << text;
        }
        EXPECT_TRUE(missing(to_path("C:\\file")));
        EXPECT_EQ(to_utf8(canonical(to_path("./..\\here/file"))), here + "\\file");
        const std::u16string key = path_key(to_path("file"));
        for (const char* const text : {"FILE\\", "C:file", ".\\file\\.", "..//here\\x\\..\\fIle"}) {
            EXPECT_EQ(path_key(to_path(text)), key) << text;
        }
        EXPECT_TRUE(lies_in(key, path_key(folder.path())));
        const scoped_current_path unchanged{path()};
        EXPECT_THROW(scoped_current_path(to_path("missing")), filesystem_error);
        EXPECT_EQ(to_utf8(current_path()), here);
    }
    EXPECT_EQ(to_utf8(current_path()), before);
}

TEST(file_system, a_path_lies_in_another_by_whole_names)
{
    const auto lies = [](const char* inner, const char* outer) {
        const std::u16string key = path_key(to_path(inner));
        const std::u16string folder = path_key(to_path(outer));
        EXPECT_EQ(is_or_lies_in(key, folder), key == folder || lies_in(key, folder));
        return lies_in(key, folder);
    };
    EXPECT_TRUE(lies("C:\\a b\\c", "c:/A B/"));
    EXPECT_TRUE(lies("C:\\a", "C:\\"));
    EXPECT_TRUE(lies("\\\\server\\share\\x", "//SERVER/share"));
    EXPECT_FALSE(lies("C:\\ab", "C:\\a"));
    EXPECT_FALSE(lies("C:\\a", "C:\\a\\"));
    EXPECT_FALSE(lies("C:\\a\\..\\..\\b", "C:\\a"));
    EXPECT_FALSE(lies("\\\\server\\x", ""));
    EXPECT_FALSE(lies("", "C:\\"));
}

TEST(file_system, a_canonical_path_has_no_separator_at_its_end)
{
    const temp_folder folder;
    const std::string whole = to_utf8(folder.path());
    write_file(folder / "sub\\file", "x");
    for (const char* const text : {"sub", "sub\\", "sub/.", "sub\\..\\sub//"}) {
        EXPECT_EQ(to_utf8(canonical(folder / text)), whole + "\\sub") << text;
    }
    EXPECT_THROW(canonical(folder / "missing"), filesystem_error);
}

TEST(file_system, sizes_counts_and_free_space)
{
    const temp_folder folder;
    write_file(folder / "a", "12345");
    write_file(folder / "sub\\b", "");
    write_file(folder / "sub\\empty\\deep\\c", "");
    EXPECT_FALSE(creating(folder / "hollow"));
    EXPECT_EQ(count_files_below(folder.path()), 3U);
    EXPECT_EQ(file_size(folder / "a"), 5U);
    EXPECT_EQ(file_size(folder / "hollow"), 0U);
    EXPECT_GT(free_space(folder / "not\\made\\yet").value_or(0), 0U);
}

TEST(file_system, streams_of_files)
{
    const temp_folder folder;
    const path file = folder / "\u0416.txt";
    open_for_writing(file) << "first, longer";
    open_for_writing(file) << "one";
    open_for_appending(file) << " two";
    EXPECT_EQ(read_file(file), "one two");
    EXPECT_FALSE(open_for_writing(folder / "no\\folder").is_open());
}

} // namespace

} // namespace nrd::misc
