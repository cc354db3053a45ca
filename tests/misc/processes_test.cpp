#include "misc/processes.h"

#include "misc/known_folders.h"
#include "support/file_content.h"
#include "support/running_program.h"
#include "support/temp_folder.h"
#include "tools/sample_machine/tiny_program.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace nrd::misc {

namespace {

using test::temp_folder;

TEST(processes, a_running_program_is_found_by_its_exact_name)
{
    const temp_folder folder;
    const auto running = [](const char* name) { return process_running(name); };
    EXPECT_FALSE(running("Vs5Blocker.exe"));
    {
        const test::running_program blocker(folder / "Vs5Blocker.exe");
        const test::running_program odd(folder / "Vs5Odd.EXE.exe");
        EXPECT_TRUE(running("Vs5Blocker.exe"));
        EXPECT_TRUE(running("Vs5Blocker"));
        EXPECT_TRUE(running("Vs5Odd.EXE"));
        for (const char* const name :
             {"vs5blocker.exe", "Vs5Blocker.EXE", "Blocker.exe", "Vs5Odd", "", ".exe"}) {
            EXPECT_FALSE(running(name)) << name;
        }
    }
    EXPECT_FALSE(running("Vs5Blocker.exe"));
}

TEST(processes, the_asking_process_does_not_count)
{
    const std::string own = to_utf8(get_executable_path().filename());
    bool listed = false;
    for (const process_entry& process : list_processes()) {
        listed = listed || (process.id == current_process_id() && process.file_name == own);
    }
    EXPECT_TRUE(listed);
    EXPECT_FALSE(process_running(own));
}

TEST(processes, the_kind_of_a_program_is_told_by_its_header)
{
    const temp_folder folder;
    const std::string dos = "MZ" + std::string(62, '\0');
    std::string new_executable = dos + "NE" + std::string(62, '\0');
    new_executable[0x3C] = 64;
    std::string library = sample_machine::tiny_program(32);
    library[64 + 23] |= 0x20;
    std::string foreign_machine = sample_machine::tiny_program(64);
    foreign_machine[64 + 5] = '\xAA';
    const struct {
        const char* name;
        std::string bytes;
        const char* answer;
    } cases[] = {
        {"32.exe", sample_machine::tiny_program(32), "32"},
        {"64.exe", sample_machine::tiny_program(64), "64"},
        {"dos.exe", dos, "Executable not 32 or 64 bit"},
        {"16.exe", new_executable, "Executable not 32 or 64 bit"},
        {"text.exe", "plain text", "Not an executable"},
        {"empty.exe", "", "Not an executable"},
        {"short.exe", "MZ", "Not an executable"},
        {"library.exe", library, "Not an executable"},
        {"foreign.exe", foreign_machine, "Not an executable"},
    };
    const auto answer = [](const path& p) -> std::string {
        try {
            return is_64bit_exe(p) ? "64" : "32";
        } catch (const std::invalid_argument& error) {
            return error.what();
        }
    };
    for (const auto& each : cases) {
        test::write_file(folder / each.name, each.bytes);
        EXPECT_EQ(answer(folder / each.name), each.answer) << each.name;
    }
    EXPECT_EQ(answer(folder / "missing.exe"), "Executable not found");
    EXPECT_EQ(answer(path()), "Executable not found");
    EXPECT_EQ(answer(folder.path()), "Not an executable");
}

} // namespace

} // namespace nrd::misc
