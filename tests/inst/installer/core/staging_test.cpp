#include "inst/installer/core/staging.h"

#include "inst/installer/core/engine_fixture.h"
#include "misc/file_system.h"
#include "misc/registry.h"
#include "support/file_content.h"
#include "support/log_capture.h"

namespace nrd::installer::core {
namespace {

using misc::to_path;
using misc::to_utf8;

class staging : public engine {
protected:
    install_directory set_up(const misc::text32& path)
    {
        local_.ensure_var(U"APP_NAME", name_);
        local_.ensure_var(U"APP_INSTALL_PATH", path);
        return setup_install_directory(local_);
    }

    installation::spec local_;
};

TEST_F(staging, all_spellings_of_a_folder_end_in_one_backslash)
{
    const misc::text32 app = misc::to_text32(app_);
    local_.ensure_var(U"PARENT", misc::to_text32(app_.parent_path()));
    for (const misc::text32& spelling :
         {app, app + U"\\", app + U"/", app + U"\\//\\", misc::replace_char(app, U'\\', U'/'),
          misc::text32(U"${PARENT}\\\\\\\\App")}) {
        const install_directory dir = set_up(spelling);
        EXPECT_EQ(to_utf8(dir.final_path), to_utf8(app_) + "\\") << to_utf8(spelling);
        EXPECT_EQ(to_utf8(dir.install_path), to_utf8(app_) + "\\");
        EXPECT_FALSE(dir.backup_path);
        EXPECT_EQ(local_.find_var(U"APP_INSTALL_PATH").value, app + U"\\");
    }
    EXPECT_TRUE(misc::is_directory(app_));
}

TEST_F(staging, an_older_installation_is_put_beside_its_folder_under_a_name_of_its_own)
{
    misc::create_key(misc::uninstall_key(name_));
    EXPECT_FALSE(set_up(misc::to_text32(app_)).backup_path);
    for (int i = 0; i < 2; ++i) {
        test::write_file(app_ / "a.txt", "old");
        const misc::path backup = set_up(misc::to_text32(app_)).backup_path.value_or(misc::path());
        EXPECT_EQ(test::read_file(backup / "a.txt"), "old");
    }
    EXPECT_EQ(programs(), "App\\\nApp_(32 digits)\\\nApp_(32 digits)\\a.txt: old\n"
                          "App_(32 digits)\\\nApp_(32 digits)\\a.txt: old\n");
}

TEST_F(staging, the_folder_that_comes_back_is_named_by_the_back_up)
{
    const misc::path backup = folder_ / ("Elsewhere_" + std::string(32, 'f'));
    test::write_file(backup / "a.txt", "old");
    test::write_file(app_ / "b.txt", "new");
    restore_backup({app_, std::nullopt, app_});
    EXPECT_TRUE(misc::is_directory(app_));
    const test::log_capture log;
    restore_backup({app_, backup, app_});
    EXPECT_TRUE(misc::missing(app_));
    EXPECT_EQ(test::read_file(folder_ / "Elsewhere\\a.txt"), "old");
    const std::string moved = "rename(" + to_utf8(backup) + "," + to_utf8(folder_ / "Elsewhere");
    const std::string removed = "remove_all(" + to_utf8(app_);
    EXPECT_EQ(plain(log.text()), plain("Restoring backup path: " + to_utf8(backup) + "\n" +
                                       removed + ")\n" + removed + ") returned ec == (success)\n" +
                                       moved + ")\n" + moved + ") returned ec == (success)\n"));
}

TEST_F(staging, a_run_that_succeeded_renames_only_where_the_paths_differ)
{
    test::write_file(folder_ / "new\\a.txt", "new");
    finish_install_directory({folder_ / "final", std::nullopt, folder_ / "new"});
    EXPECT_EQ(test::read_file(folder_ / "final\\a.txt"), "new");
    const test::log_capture log;
    finish_install_directory({folder_ / "final", std::nullopt, folder_ / "final"});
    EXPECT_EQ(log.text(), "");
}

} // namespace
} // namespace nrd::installer::core
