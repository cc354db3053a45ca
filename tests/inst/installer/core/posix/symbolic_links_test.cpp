#include "inst/installer/core/engine_fixture.h"
#include "inst/installer/core/file_installation.h"
#include "inst/installer/core/uninstall_data.h"
#include "misc/file_system.h"
#include "support/file_content.h"

#include <boost/filesystem/operations.hpp>
#include <fstream>
#include <sys/stat.h>

// Only this system has links and special files that a package could bring.

namespace nrd::installer::core {
namespace {

namespace fs = boost::filesystem;

class links : public engine {
protected:
    links()
    {
        package_.file("tree\\file", "content").file("tree\\sub\\x", "x");
        const fs::path tree = misc::to_host(package_.folder() / "tree");
        fs::create_symlink("file", tree / "to_file");
        fs::create_symlink("sub", tree / "to_folder");
        fs::create_symlink("gone", tree / "to_nothing");
        EXPECT_EQ(mkfifo((tree / "zfifo").c_str(), 0600), 0);
    }
};

TEST_F(links, are_copied_as_links_and_what_cannot_be_copied_ends_the_run)
{
    const misc::path out = folder_ / "out";
    EXPECT_ANY_THROW(copy_recursive(package_.folder() / "tree", out, observer_));
    EXPECT_EQ(fs::read_symlink(misc::to_host(out / "to_file")), "file");
    EXPECT_EQ(fs::read_symlink(misc::to_host(out / "to_folder")), "sub");
    EXPECT_TRUE(misc::missing(out / "to_nothing")); // leads nowhere: a source that is not there
    EXPECT_EQ(observer_.events(), "installing: file\ninstalling: x\ninstalling: to_file\n"
                                  "installing: to_folder\ninstalling: zfifo\n");
    // A link onto a link is refused, unlike a file onto a file.
    EXPECT_NO_THROW(copy_recursive(package_.folder() / "tree\\file", out, observer_));
    EXPECT_ANY_THROW(copy_recursive(package_.folder() / "tree\\to_file", out, observer_));
}

TEST_F(links, a_file_goes_into_the_folder_that_came_before_it_in_another_spelling)
{
    const fs::path tree = misc::to_host(package_.folder() / "spellings");
    fs::create_directories(tree / "NAME");
    std::ofstream((tree / "name").string()) << "content";
    copy_recursive(package_.folder() / "spellings", folder_ / "out", observer_);
    EXPECT_TRUE(fs::is_regular_file(misc::to_host(folder_ / "out") / "NAME" / "name"));
}

TEST_F(links, count_for_the_uninstaller_as_what_they_lead_to)
{
    std::deque<installation::fileset> filesets;
    expand_directory({}, filesets, package_.folder() / "tree", "out");
    std::string text;
    for (const installation::fileset& each : filesets) {
        text += misc::to_utf8(each.out()) + "\n";
    }
    EXPECT_EQ(text, "out\\file\nout\\sub\\x\nout\\to_file\nout\\to_folder\\x\n");
}

} // namespace
} // namespace nrd::installer::core
