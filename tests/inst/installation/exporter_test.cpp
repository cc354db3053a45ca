#include "inst/installation/exporter.h"

#include "inst/installation/parser.h"
#include "support/file_content.h"
#include "support/spec_text.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <sstream>

namespace nrd::installation {
namespace {

spec full_spec()
{
    spec s;
    s.vars = {{U"APP_NAME", U"<\"\u00e4\U0001f600&\n"}};
    s.packages = {{"main", "win", "64", {fileset(U"a", U"${B}/c", U"false"), fileset()}},
                  {"empty", "mac", "all", {}}};
    s.reg_keys = {{U"SOFTWARE\\x", "n", U"${D}", {0}}};
    s.path_entries = {{U"p", U"code"}};
    s.shortcuts = {{U"l", U"d", U"win"}};
    s.block_processes = {{"x.exe", "all"}};
    s.working_directory = misc::path("C:\\pkg");
    return s;
}

std::string exported(const spec& s)
{
    std::ostringstream out;
    export_spec(s, out);
    return out.str();
}

TEST(export_spec, the_document_is_this_text)
{
    EXPECT_EQ(exported(full_spec()), R"(<?xml version="1.0"?>
<installation>
	<vars>
		<var name="APP_NAME" value="&lt;&quot;)"
                                     "\xc3\xa4\xf0\x9f\x98\x80"
                                     R"(&amp;&#10;" />
	</vars>
	<packages>
		<package name="main" os="win" bits="64">
			<filesets>
				<fileset in="a" out="${B}\c" />
				<fileset in="" out="" />
			</filesets>
		</package>
		<package name="empty" os="mac" bits="all">
			<filesets />
		</package>
	</packages>
	<registry>
		<key path="SOFTWARE\x" name="n" data="${D}" />
	</registry>
	<path_entries>
		<path_entry app_code="code" path="p" />
	</path_entries>
	<shortcuts>
		<shortcut location="l" destination="d" os="win" />
	</shortcuts>
	<block_processes>
		<block_process name="x.exe" os="all" />
	</block_processes>
</installation>
)");
}

TEST(export_spec, sections_without_entries_are_written_empty)
{
    spec s;
    s.vars.clear();
    EXPECT_EQ(exported(s), "<?xml version=\"1.0\"?>\n<installation>\n\t<vars />\n\t<packages />\n"
                           "\t<registry />\n\t<path_entries />\n\t<shortcuts />\n"
                           "\t<block_processes />\n</installation>\n");
}

TEST(save_spec, an_import_brings_back_all_but_create_folders_and_binary_data)
{
    const test::temp_folder folder;
    const misc::path file = folder / "uninstall.xml";
    ASSERT_TRUE(save_spec(full_spec(), file));
    EXPECT_EQ(test::read_file(file), exported(full_spec()));
    spec expected = full_spec();
    expected.vars.insert(expected.vars.begin(), spec().vars.front());
    expected.packages[0].filesets[0] = fileset(U"a", U"${B}/c", U"");
    expected.reg_keys[0].binary_data.clear();
    const spec again = import_spec(file);
    EXPECT_EQ(test::spec_text(again), test::spec_text(expected));
    EXPECT_EQ(again.working_directory, folder.path());
}

TEST(save_spec, a_file_that_cannot_be_written_gives_false)
{
    const test::temp_folder folder;
    EXPECT_FALSE(save_spec(full_spec(), folder / "missing\\uninstall.xml"));
}

} // namespace
} // namespace nrd::installation
