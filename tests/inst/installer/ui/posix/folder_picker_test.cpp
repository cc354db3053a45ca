#include "inst/installer/ui/folder_picker.h"

#include "support/file_content.h"
#include "support/log_capture.h"
#include "support/temp_folder.h"

#include "misc/file_system.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace nrd::installer::ui {
namespace {

/// A desktop that has no other programs than those that a test gives it.
class folder_picker : public testing::Test {
protected:
    folder_picker()
    {
        misc::create_directories(bin_);
        setenv("PATH", misc::host_path_text(bin_).c_str(), 1);
    }
    ~folder_picker() override { setenv("PATH", path_.c_str(), 1); }

    void add_program(const std::string& name, const std::string& script)
    {
        test::write_file(bin_ / misc::to_path(std::string_view(name)), "#!/bin/sh\n" + script);
        chmod(misc::host_path_text(bin_ / misc::to_path(std::string_view(name))).c_str(), S_IRWXU);
    }

    const std::string path_ = std::getenv("PATH");
    test::temp_folder folder_;
    misc::path bin_ = folder_ / "bin";
};

TEST_F(folder_picker, asks_the_desktop_and_takes_its_answer)
{
    const misc::path picked = folder_ / "ein Ordner";
    misc::create_directories(picked);
    add_program("zenity", "echo \"$*\" >'" + misc::host_path_text(folder_ / "asked") + "'\necho '" +
                              misc::host_path_text(picked) + "'\n");
    EXPECT_EQ(pick_folder(folder_.path()), picked);
    EXPECT_EQ(test::read_file(folder_ / "asked"), "--file-selection --directory --filename=" +
                                                      misc::host_path_text(folder_.path()) + "/\n");
    add_program("zenity", "exit 1\n");
    EXPECT_EQ(pick_folder(folder_.path()), std::nullopt);
}

TEST_F(folder_picker, turns_to_the_other_desktop_and_logs_that_there_is_none)
{
    const test::log_capture log;
    EXPECT_EQ(pick_folder({}), std::nullopt);
    EXPECT_EQ(log.text(), "The system has no folder picker.\n");
    add_program("kdialog", "echo /\n");
    EXPECT_EQ(pick_folder({}), misc::to_path(std::string_view("Z:\\")));
}

} // namespace
} // namespace nrd::installer::ui
