#include "support/running_program.h"

#include "misc/file_system.h"
#include "misc/known_folders.h"
#include "misc/processes.h"

#include <algorithm>
#include <boost/process/child.hpp>
#include <gtest/gtest.h>
#include <thread>

namespace nrd::test {

struct running_program::child {
    boost::process::child process;
    std::string name;

    [[nodiscard]] bool is_listed() const
    {
        const std::vector<misc::process_entry> all = misc::list_processes();
        return std::any_of(all.begin(), all.end(), [this](const misc::process_entry& each) {
            return each.id == static_cast<std::uint32_t>(process.id()) && each.file_name == name;
        });
    }
};

running_program::running_program(const misc::path& file)
{
    const misc::path own = misc::get_executable_path();
    misc::path sleeper = own.parent_path() / "sleeper";
    sleeper += own.extension();
    misc::create_directories(file.parent_path());
    misc::error_code ec;
    misc::copy_file(sleeper, file, ec);
    EXPECT_FALSE(ec) << misc::to_utf8(sleeper) << ": " << misc::error_message(ec);
    child_.reset(
        new child{boost::process::child(misc::to_host(file)), misc::to_utf8(file.filename())});
}

running_program::~running_program()
{
    child_->process.terminate();
    while (child_->is_listed()) {
        std::this_thread::yield(); // the system ends a process a little later
    }
}

} // namespace nrd::test
