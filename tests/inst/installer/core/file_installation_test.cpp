#include "inst/installer/core/file_installation.h"

#include "inst/installer/core/engine_fixture.h"
#include "misc/file_system.h"
#include "misc/system_info.h"
#include "support/file_content.h"
#include "support/folder_text.h"
#include "support/log_capture.h"

namespace nrd::installer::core {
namespace {

using installation::fileset;
using installation::package;
using misc::to_utf8;

class file_installation : public engine {
protected:
    file_installation()
    {
        package_.file("a.txt", "new a").file("tree\\b.txt", "new b").file("tree\\sub\\c.txt", "c");
        package_.empty_folder("tree\\nothing");
        spec_.ensure_var(U"OUT", misc::to_text32(out_));
        spec_.ensure_var(U"TREE", U"tree");
    }

    /// What lies in the target folder after one fileset: files in it, folders with a "\" behind.
    std::string copied(const misc::text32& in, const misc::text32& out,
                       const misc::text32& create_folders = {})
    {
        const misc::scoped_current_path here(package_.folder());
        install_file(fileset(in, out, create_folders), spec_, observer_);
        std::string text = test::folder_text(out_);
        misc::error_code ec;
        misc::remove_all(out_, ec);
        return text;
    }

    misc::path out_ = folder_ / "out";
    installation::spec spec_;
};

const std::string tree = "b.txt: new b\nnothing\\\nsub\\\nsub\\c.txt: c\n";

TEST_F(file_installation, a_file_takes_the_name_of_out_or_goes_into_the_folder_out)
{
    EXPECT_EQ(copied(U"a.txt", U"${OUT}\\lib"), "lib: new a\n");
    EXPECT_EQ(copied(U"a.txt", U"${OUT}\\lib\\"), "lib\\\nlib\\a.txt: new a\n");
    misc::create_directories(out_ / "lib");
    EXPECT_EQ(copied(U"a.txt", U"${OUT}/lib"), "lib\\\nlib\\a.txt: new a\n");
    EXPECT_EQ(observer_.events(), "installing: a.txt\ninstalling: a.txt\ninstalling: a.txt\n");
}

TEST_F(file_installation, a_folder_is_copied_whole_and_out_takes_its_place)
{
    EXPECT_EQ(copied(U"tree", U"${OUT}"), tree);
    EXPECT_EQ(copied(U"${TREE}\\sub\\", U"${OUT}\\x\\y"), "x\\\nx\\y\\\nx\\y\\c.txt: c\n");
    EXPECT_EQ(observer_.events(), "installing: b.txt\ninstalling: c.txt\ninstalling: c.txt\n");
}

TEST_F(file_installation, a_file_goes_into_a_folder_of_its_name_also_within_a_folder)
{
    misc::create_directories(out_ / "B.TXT");
    EXPECT_EQ(copied(U"tree", U"${OUT}"),
              "B.TXT\\\nB.TXT\\b.txt: new b\nnothing\\\nsub\\\nsub\\c.txt: c\n");
}

TEST_F(file_installation, what_is_there_is_overwritten_without_a_comparison)
{
    test::write_file(out_ / "a.txt", "a newer and longer a");
    test::write_file(out_ / "sub\\other", "other");
    test::write_file(out_ / "sub\\c.txt", "old");
    EXPECT_EQ(copied(U"tree", U"${OUT}"),
              "a.txt: a newer and longer a\nb.txt: new b\nnothing\\\nsub\\\nsub\\c.txt: c\n"
              "sub\\other: other\n");
    test::write_file(out_ / "a.txt", "a newer and longer a");
    EXPECT_EQ(copied(U"a.txt", U"${OUT}"), "a.txt: new a\n");
}

TEST_F(file_installation, a_fileset_that_needs_its_folder_is_passed_over_without_it)
{
    EXPECT_EQ(copied(U"a.txt", U"${OUT}\\lib\\a", U"false"), "");
    EXPECT_EQ(copied(U"missing", U"${OUT}\\lib\\a", U"false"), "");
    EXPECT_EQ(observer_.events(), "");
    EXPECT_EQ(copied(U"a.txt", U"${OUT}\\lib\\a", U"False"), "lib\\\nlib\\a: new a\n");
    misc::create_directories(out_);
    EXPECT_EQ(copied(U"a.txt", U"${OUT}\\lib", U"false"), "lib: new a\n");
    EXPECT_EQ(copied(U"tree", U"${OUT}", U"false"), tree); // only the folder above counts
    misc::create_directories(out_);
    EXPECT_EQ(copied(U"missing", U"${OUT}\\lib", U"false"), "");
    EXPECT_TRUE(observer_.events().ends_with("in_file_does_not_exist: missing\n"));
}

TEST_F(file_installation, sources_are_told_as_written_and_an_empty_one_is_missing)
{
    EXPECT_EQ(copied(U"", U""), "");
    EXPECT_EQ(copied(U"", U"${OUT}"), "");
    EXPECT_EQ(copied(U"${TREE}/gone", U"${OUT}"), "");
    EXPECT_EQ(observer_.events(),
              "in_file_does_not_exist: \nin_file_does_not_exist: ${TREE}\\gone\n");
}

TEST_F(file_installation, passed_over_filesets_log_these_lines)
{
    const test::log_capture log;
    copied(U"a.txt", U"");
    copied(U"a.txt", U"x\\y", U"false");
    copied(U"gone", U"x");
    EXPECT_EQ(log.text(), "Install file in: a.txt\nInstall file out: empty\n"
                          "Install file in: a.txt\nFolder does not exist.\n"
                          "Install file in: gone\nInstall file out: x\nIn file does not exist.\n");
}

TEST_F(file_installation, packages_are_chosen_by_system_and_word_size)
{
    std::vector<package> packages;
    for (const char* const os : {"win", "mac", "all", "", "other"}) {
        for (const char* const bits : {"32", "64", "all", "both", ""}) {
            const std::string name = std::string(os) + "-" + bits;
            const misc::text32 out = U"${OUT}\\" + misc::to_text32(std::string_view(name));
            packages.push_back({name, os, bits, {fileset(U"a.txt", out, U"")}});
        }
    }
    const misc::scoped_current_path here(package_.folder());
    install_packs(packages, spec_, observer_);
    std::string names;
    for (const misc::path& entry : misc::directory_entries(out_)) {
        names += to_utf8(entry.filename()) + " ";
    }
    EXPECT_EQ(names, misc::is_64bit_windows()
                         ? "-64 -all all-64 all-all other-64 other-all win-64 win-all "
                         : "-32 -all all-32 all-all other-32 other-all win-32 win-all ");
}

} // namespace
} // namespace nrd::installer::core
