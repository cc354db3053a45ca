#include "support/file_content.h"
#include "support/temp_folder.h"
#include "vs/vs_installer/hosts.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace nrd::vs_installer {
namespace {

TEST(exe_is_32_bit, throws_for_a_program_of_another_kind)
{
    const test::temp_folder folder;
    const misc::path file = folder / "dos.exe";
    test::write_file(file, "MZ" + std::string(62, '\0'));
    try {
        exe_is_32_bit(file);
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_EQ(error.what(), "Executable not 32 or 64 bit" + misc::to_utf8(file));
    }
}

} // namespace
} // namespace nrd::vs_installer
