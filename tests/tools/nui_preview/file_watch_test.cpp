#include "tools/nui_preview/file_watch.h"

#include "support/nui/layout.h"
#include "support/temp_folder.h"
#include "tools/nui_preview/failure.h"
#include "tools/nui_preview/host_path.h"

#include <gtest/gtest.h>

namespace {

using namespace nrd::tools::preview;

TEST(file_watch_test, a_write_is_noticed_once_and_a_missing_file_is_no_change)
{
    const nrd::test::temp_folder folder;
    const std::string one = nui::test::hostPath(folder / "one.json");
    const std::string two = nui::test::hostPath(folder / "two.json");
    write_file(one, "1");
    file_watch watch({one, two});
    EXPECT_FALSE(watch.has_changed());
    write_file(one, "12");
    EXPECT_TRUE(watch.has_changed());
    EXPECT_FALSE(watch.has_changed());
    std::filesystem::remove(host_path(one));
    EXPECT_FALSE(watch.has_changed());
    write_file(two, "2");
    EXPECT_TRUE(watch.has_changed());
    const auto before = std::filesystem::last_write_time(host_path(two));
    std::filesystem::last_write_time(host_path(two), before + std::chrono::seconds(5));
    EXPECT_TRUE(watch.has_changed());
}

} // namespace
