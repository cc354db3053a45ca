#include "tools/uninstaller/uninstall.h"

#include "support/file_content.h"
#include "support/folder_text.h"
#include "support/log_capture.h"
#include "support/running_program.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>

namespace nrd::uninstaller {
namespace {

using test::write_file;

class uninstall_test : public ::testing::Test {
protected:
    uninstall_test() { write_file(root_ / "host\\plug.txt", "p"); }

    /// An uninstall.xml that lists host\plug.txt; `more` goes between its sections.
    void write_xml(const std::string& more)
    {
        write_file(xml_, "<installation><vars><var name=\"APP_NAME\" value=\"VS5 test\"/>"
                         "<var name=\"HOST\" value=\"" +
                             misc::to_utf8(root_ / "host") + "\"/>" + more +
                             "<packages><package><filesets>"
                             "<fileset in=\"plug.txt\" out=\"${HOST}\\plug.txt\"/>"
                             "</filesets></package></packages></installation>");
    }

    test::temp_folder root_;
    misc::path xml_ = root_ / "uninstall.xml";
};

TEST_F(uninstall_test, removes_nothing_by_a_file_that_is_missing_or_broken)
{
    EXPECT_FALSE(uninstall(xml_));
    write_xml("</vars><packages>");
    EXPECT_FALSE(uninstall(xml_));
    write_xml("</vars>");
    EXPECT_THROW(uninstall(xml_), std::invalid_argument) << "APP_INSTALL_PATH is missing";
    EXPECT_EQ(test::folder_text(root_ / "host"), "plug.txt: p\n");
}

TEST_F(uninstall_test, removes_nothing_while_a_blocking_program_runs_and_says_yes_when_all_is_gone)
{
    write_xml("<var name='APP_INSTALL_PATH' value='" + misc::to_utf8(root_ / "VS5") +
              "\\'/></vars><block_processes><block_process name='vs5_blocker' "
              "os='all'/></block_processes>");
    std::optional<test::running_program> blocker(root_ / "vs5_blocker.exe");
    const test::log_capture log;
    EXPECT_FALSE(uninstall(xml_));
    EXPECT_TRUE(log.contains("Nothing is removed while this program runs: vs5_blocker"));
    EXPECT_EQ(test::folder_text(root_ / "host"), "plug.txt: p\n");

    blocker.reset();
    EXPECT_TRUE(uninstall(xml_));
    EXPECT_EQ(test::folder_text(root_ / "host"), "");
    EXPECT_TRUE(uninstall(xml_)) << "there is nothing left to do";
}

} // namespace
} // namespace nrd::uninstaller
