#include "support/posix/scratch_machine.h"

#include "misc/posix/machine.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace nrd::test {

namespace {

void use_machine(const std::string& folder)
{
    ASSERT_EQ(setenv("VS5_MACHINE", folder.c_str(), 1), 0);
    misc::forget_machine();
}

} // namespace

scratch_machine::scratch_machine(std::string_view facts) : before_(misc::this_machine().folder)
{
    std::string name = std::filesystem::temp_directory_path() / "vs5-machine-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        throw std::filesystem::filesystem_error("mkdtemp", name, std::error_code());
    }
    folder_ = name;
    use_machine(name);
    if (!facts.empty()) {
        set_facts(facts);
    }
}

scratch_machine::~scratch_machine()
{
    use_machine(before_);
    std::filesystem::remove_all(folder_);
}

void scratch_machine::set_facts(std::string_view facts) const
{
    std::ofstream(folder_ / "machine.json") << facts;
    misc::forget_machine();
}

} // namespace nrd::test
