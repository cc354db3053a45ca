#include "inst/installer/core/engine_fixture.h"
#include "misc/file_system.h"
#include "support/at_log_line.h"
#include "support/log_capture.h"
#include "support/posix/machine_list_entry.h"

#include <memory>

namespace nrd::installer::core {
namespace {

using misc::to_utf8;

// What the machine forbids comes to the engine as it would from a user who is no administrator.
TEST_F(engine, a_denied_target_ends_the_run_without_a_question_and_the_old_folder_comes_back)
{
    const struct {
        const char* denied;
        const char* line;
    } cases[] = {
        {"a.txt", "Does not have permission to install file."},
        {"lib", "Does not have permission to create directories."},
        {"extra", "Does not have permission to create parent directory."},
    };
    add_product();
    add_old_installation();
    const std::string before = programs_exactly();
    for (const auto& [denied, line] : cases) {
        std::unique_ptr<test::machine_list_entry> entry;
        const test::at_log_line begin("Install packs start.", [&, name = denied] {
            entry = std::make_unique<test::machine_list_entry>("denied", to_utf8(app_ / name));
        });
        const test::at_log_line end("Installer_error.", [&] { entry.reset(); });
        const test::log_capture log;
        EXPECT_FALSE(run()) << denied;
        EXPECT_TRUE(log.contains(line)) << denied;
        EXPECT_EQ(programs_exactly(), before) << denied;
    }
    EXPECT_EQ(observer_.events().find("failed_to_copy"), std::string::npos);
}

} // namespace
} // namespace nrd::installer::core
