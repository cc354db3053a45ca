#include "inst/installer/core/path_index.h"

#include "misc/file_system.h"
#include "support/file_content.h"

#include <gtest/gtest.h>
#include <sstream>

namespace nrd::installer::core {
namespace {

class path_index_of_machine : public testing::Test {
protected:
    ~path_index_of_machine() override
    {
        misc::error_code ec;
        misc::remove_all(file_.parent_path(), ec);
    }

    /// Without the CRs of the system's line ends.
    [[nodiscard]] std::string content() const
    {
        std::string text = test::read_file(file_);
        std::erase(text, '\r');
        return text;
    }

    const misc::path file_ = path_index_file();
};

TEST(path_index, lines_are_taken_as_they_come_and_written_in_order_of_keys)
{
    std::istringstream in("b\t7\tC:\\x\ty\r\n"
                          "a\t18446744073709551615\t\xc3\xa4\n"
                          "B\t-1\tp\n"
                          "c\t18446744073709551616\tq\n"
                          "d\t1x\tr\n"
                          "\xc3\xa4\t\t\n"
                          "e\t5\n"
                          "f\n"
                          "g\t1\told\ng\t2\tnew");
    std::ostringstream out;
    write_path_index(read_path_index(in), out);
    EXPECT_EQ(out.str(), "B\t0\tp\n"
                         "a\t18446744073709551615\t\xc3\xa4\n"
                         "b\t7\tC:\\x\ty\n"
                         "c\t0\tq\n"
                         "d\t0\tr\n"
                         "e\t5\t\n"
                         "f\t0\t\n"
                         "g\t2\tnew\n"
                         "\xc3\xa4\t0\t\n");
}

TEST_F(path_index_of_machine, gets_an_entry_and_keeps_the_others)
{
    test::write_file(file_, "b\t7\told\r\na\t8\tkept\r\n");
    add_path_index_entry(U"b", U"C:\\\u00e4");
    add_path_index_entry(U"\u00fc", U"first");
    add_path_index_entry(U"\u00fc", U"last");
    EXPECT_EQ(content(), "a\t8\tkept\nb\t0\tC:\\\xc3\xa4\n\xc3\xbc\t0\tlast\n");
}

TEST_F(path_index_of_machine, lies_in_the_shared_folder_which_is_not_made_here)
{
    EXPECT_TRUE(misc::to_utf8(file_).ends_with("\\Tavrolen Corporation\\tvl_path_index.txt"));
    add_path_index_entry(U"a", U"p");
    EXPECT_TRUE(misc::missing(file_.parent_path()));
    misc::create_directories(file_.parent_path());
    add_path_index_entry(U"a", U"p");
    EXPECT_EQ(content(), "a\t0\tp\n");
}

} // namespace
} // namespace nrd::installer::core
