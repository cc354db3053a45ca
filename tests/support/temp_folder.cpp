#include "support/temp_folder.h"

#include "misc/file_system.h"
#include "misc/known_folders.h"
#include "misc/processes.h"

#include <boost/algorithm/string/replace.hpp>
#include <gtest/gtest.h>

namespace nrd::test {

temp_folder::temp_folder()
{
    static int count = 0;
    const std::string name =
        "vs5-" + std::to_string(misc::current_process_id()) + "-" + std::to_string(++count);
    path_ = misc::get_local_folder() / "Temp" / misc::to_path(std::string_view(name));
    misc::create_directories(path_);
}

temp_folder::~temp_folder()
{
    misc::error_code ec;
    misc::remove_all(path_, ec);
    EXPECT_FALSE(ec) << misc::to_utf8(path_) << ": " << misc::error_message(ec);
}

misc::path temp_folder::operator/(std::string_view below) const
{
    return path_ / misc::to_path(below);
}

std::string temp_folder::plain(const std::string& text) const
{
    return boost::replace_all_copy(text, misc::to_utf8(path_), "T:");
}

} // namespace nrd::test
