#include "support/file_content.h"

#include "misc/file_system.h"

#include <boost/filesystem/operations.hpp>
#include <gtest/gtest.h>
#include <iterator>

namespace nrd::test {

void write_file(const misc::path& file, std::string_view content)
{
    misc::create_directories(file.parent_path());
    std::ofstream out(misc::to_host(file).c_str(), std::ios::binary);
    out << content << std::flush;
    ASSERT_TRUE(out.good()) << misc::to_utf8(file);
}

std::string read_file(const misc::path& file)
{
    std::ifstream in = misc::open_for_reading(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

void make_read_only(const misc::path& file)
{
    namespace fs = boost::filesystem;
    fs::permissions(misc::to_host(file),
                    fs::remove_perms | fs::owner_write | fs::group_write | fs::others_write);
}

} // namespace nrd::test
