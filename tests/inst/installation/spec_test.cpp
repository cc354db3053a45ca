#include "inst/installation/spec.h"

#include "support/log_capture.h"
#include "support/spec_text.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace nrd::installation {
namespace {

using test::log_capture;

const std::string default_var = "var DEFAULT_PROGRAM_DIRECTORY = C:\\Program Files\\\n";

std::string what_is_thrown(const std::function<void()>& call)
{
    try {
        call();
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "nothing";
}

TEST(spec, filesets_keep_backslashes_only_and_create_folders_as_written)
{
    fileset files(U"a/b//c", U"\\\\x/y", U"a/b");
    EXPECT_EQ(files.in(), U"a\\b\\c");
    EXPECT_EQ(files.out(), U"\\x\\y");
    EXPECT_EQ(files.create_folders(), U"a/b");
    files.set_in(U"//d");
    files.set_out(U"e/");
    EXPECT_EQ(files.in(), U"\\d");
    EXPECT_EQ(files.out(), U"e\\");
}

TEST(spec, added_variables_keep_the_first_value_and_ensured_ones_get_the_last)
{
    spec s;
    const log_capture log;
    s.add_vars({{U"A", U"1"}, {U"A", U"2"}});
    s.ensure_var(U"A", U"3");
    s.ensure_var(U"B", U"4");
    s.set_var(U"B", U"5");
    EXPECT_EQ(test::spec_text(s), default_var + "var A = 3\nvar B = 5\n");
    EXPECT_EQ(log.text(), "Adding vars.\n"
                          "Finding var: A\nCan't find A\nAdding var: A1\n"
                          "Finding var: A\nFound A\n"
                          "Ensuring var: A3\nFinding var: A\nFound A\nSetting var: A13\n"
                          "Ensuring var: B4\nFinding var: B\nCan't find B\n"
                          "Finding var: B\nCan't find B\nAdding var: B4\n"
                          "Setting var: B45\n");
}

TEST(spec, a_missing_variable_throws_wherever_it_is_needed)
{
    spec s;
    const std::string expected = "Var not found: \xc3\x84";
    const text32 name = U"\u00c4";
    const log_capture log;
    EXPECT_EQ(what_is_thrown([&] { s.find_var(name); }), expected);
    EXPECT_EQ(what_is_thrown([&] { s.set_var(name, U"1"); }), expected);
    EXPECT_EQ(what_is_thrown([&] { (void)s.var_value(name); }), expected);
    EXPECT_EQ(what_is_thrown([&] { (void)s.app_name(); }), "Var not found: APP_NAME");
    EXPECT_EQ(what_is_thrown([&] { (void)s.to_text(); }), "Var not found: APP_NAME");
    const std::string line = "Var not found. Throwing.\n";
    EXPECT_EQ(log.text(), line + line + line + line + line);
}

TEST(spec, expansion_looks_variables_up_in_the_spec_and_normalises_whatever_the_text_is)
{
    spec s;
    s.vars = {{U"A", U"C:/x"}, {U"B", U"${A}/\u00e4"}};
    EXPECT_EQ(s.var_value(U"B"), U"C:\\x\\\u00e4");
    EXPECT_EQ(s.expand(U"http://${B}"), U"http:\\C:\\x\\\u00e4");
    const log_capture log;
    EXPECT_EQ(s.expand(U"${A}\\${Q}${A}"), U"C:\\x\\${Q}C:\\x");
    EXPECT_EQ(s.expand(U"a {b} $c"), U"a {b} $c");
    EXPECT_EQ(log.text(), "Finding var: A\nFound A\nFinding var: Q\nCan't find Q\n");
}

TEST(spec, the_dump_shows_fields_as_stored_behind_the_expanded_name)
{
    spec s;
    s.vars = {{U"APP_NAME", U"${N}/5"}, {U"N", U"App"}};
    s.packages = {{"main", "win", "all", {fileset(U"in", U"out", U"")}}};
    s.reg_keys = {{U"SOFTWARE\\x", "n", U"${N}", {0}}};
    s.path_entries = {{U"p/", U"code"}};
    s.shortcuts = {{U"l", U"d"}};
    s.block_processes = {{"x.exe", "win"}};
    s.working_directory = misc::path("C:\\pkg");
    EXPECT_EQ(misc::to_utf8(s.to_text()), R"(App\5Vars:
ID: APP_NAME, Val: ${N}/5
ID: N, Val: App
Packages:
Name: main, OS: win, Bits: all
Reg Keys:
Name: n, Path: SOFTWARE\x, Data: ${N}
Paths:
Path: p/, App: code
Shortcuts:
Location: l, Destination: d, OS: all
Processes:
Name: x.exe, OS: win
Working directory:
C:\pkg)");
}

} // namespace
} // namespace nrd::installation
