// How much an installation costs beyond the copying itself, and whether its cost grows with the
// number of files.

#include "inst/installation/installer_observer.h"
#include "inst/installation/spec.h"
#include "inst/installer/core/install.h"
#include "live_memory.h"
#include "misc/command_line.h"
#include "misc/file_system.h"
#include "misc/registry.h"
#include "stopwatch.h"
#include "streams/streams.h"

#include <boost/filesystem/operations.hpp>
#include <cstdio>
#include <string>

namespace {

namespace fs = boost::filesystem;
using nrd::installation::spec;
using nrd::misc::path;

const path scratch = "C:\\vs5_bench";
constexpr int files_in_folder = 100;
constexpr std::size_t kilobyte = 1024;

struct wizard_like_observer : nrd::installation::installer_observer {
    bool report(const nrd::installation::install_event& event) override
    {
        return event.id != "in_file_does_not_exist" && event.id != "failed_to_copy";
    }
};

void make_files(const path& folder, int count, std::size_t size)
{
    const std::string content(size, 'x');
    for (int i = 0; i < count; ++i) {
        const path place = folder / std::to_string(i / files_in_folder).c_str();
        nrd::misc::create_directories(place);
        auto file = nrd::misc::open_for_writing(place / ("file" + std::to_string(i)).c_str(),
                                                nrd::misc::line_ends::as_written);
        file << content;
    }
}

path make_tree(const char* name, int small_files, int large_files)
{
    path tree = scratch / name;
    make_files(tree / "small", small_files, 11 * kilobyte);
    make_files(tree / "large", large_files, 1024 * kilobyte);
    return tree;
}

spec make_spec(const path& tree)
{
    spec s;
    s.add_var({U"APP_NAME", U"VS5 bench"});
    s.add_var({U"APP_VERSION", U"1"});
    s.add_var({U"PUBLISHER", U"bench"});
    s.add_var({U"APP_INSTALL_PATH", nrd::misc::to_text32(scratch / "installed")});
    s.packages.push_back(
        {"all", "all", "all", {{nrd::misc::to_text32(tree), U"${APP_INSTALL_PATH}files", U""}}});
    return s;
}

void remove_tree(const path& p)
{
    nrd::misc::error_code ec;
    nrd::misc::remove_all(p, ec);
}

void clean_install()
{
    remove_tree(scratch / "installed");
    nrd::misc::delete_key(nrd::misc::uninstall_key(U"VS5 bench"));
}

double time_install(const path& tree)
{
    clean_install();
    const spec s = make_spec(tree);
    wizard_like_observer observer;
    bool done = false;
    const double time = bench::seconds([&] { done = nrd::installer::core::install(s, observer); });
    if (!done) {
        std::puts("the installation failed");
        std::exit(1);
    }
    return time;
}

/// The same system call, file by file, with nothing around it.
void copy_plainly(const fs::path& from, const fs::path& to)
{
    fs::create_directories(to);
    for (fs::directory_iterator entry(from), end; entry != end; ++entry) {
        const fs::path target = to / entry->path().filename();
        if (fs::is_directory(entry->status())) {
            copy_plainly(entry->path(), target);
        } else {
            fs::copy_file(entry->path(), target);
        }
    }
}

double time_plain_copy(const path& tree)
{
    remove_tree(scratch / "copied");
    const fs::path from = nrd::misc::to_host(tree);
    const fs::path to = nrd::misc::to_host(scratch / "copied");
    return bench::seconds([&] { copy_plainly(from, to); });
}

void compare_with_plain_copy()
{
    const path tree = make_tree("mixed", 2000, 20);
    std::vector<double> ratios;
    time_plain_copy(tree); // brings the sources into memory
    for (int round = 0; round < 5; ++round) {
        const double plain = time_plain_copy(tree);
        ratios.push_back(time_install(tree) / plain);
    }
    std::printf("install / plain copy, 2,000 x 11 KB and 20 x 1 MB, log on:  %.2f  (aim: 1.2)\n",
                bench::median(ratios));
}

void compare_sizes()
{
    const path small = make_tree("few", 2000, 0);
    const path large = make_tree("many", 20000, 0);
    std::vector<double> ratios;
    std::size_t memory_small = 0;
    std::size_t memory_large = 0;
    for (int round = 0; round < 3; ++round) {
        bench::reset_peak_memory();
        const double few = time_install(small) / 2000;
        memory_small = bench::peak_memory();
        bench::reset_peak_memory();
        const double many = time_install(large) / 20000;
        memory_large = bench::peak_memory();
        ratios.push_back(many / few);
    }
    std::printf("time per file, 20,000 files / 2,000 files:                  %.2f  (aim: 1.1)\n",
                bench::median(ratios));
    std::printf("memory per file, 20,000 files / 2,000 files:                %.2f  (aim: 1.1)\n",
                static_cast<double>(memory_large) / 10 / static_cast<double>(memory_small));
}

} // namespace

int main()
{
    remove_tree(scratch);
    nrd::misc::prefs_override() = scratch / "prefs";
    nrd::misc::create_directories(scratch / "prefs" / "Tavrolen Corporation" / "log" / "installer");
    nrd::streams::set_stream_file("installer", true);
    if (!nrd::streams::stream_file_path("installer")) {
        std::puts("there is no log");
        return 1;
    }
    compare_with_plain_copy();
    compare_sizes();
    clean_install();
    nrd::streams::set_stream_file("installer", false);
    remove_tree(scratch);
}
