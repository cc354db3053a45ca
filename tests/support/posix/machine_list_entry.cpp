#include "support/posix/machine_list_entry.h"

#include "misc/posix/machine.h"

#include <fstream>

namespace nrd::test {

namespace {

std::filesystem::path facts_file()
{
    return misc::this_machine().folder / "machine.json";
}

void write_facts(const nlohmann::json& facts)
{
    std::ofstream(facts_file()) << facts;
    misc::forget_machine();
}

} // namespace

machine_list_entry::machine_list_entry(const std::string& list, const std::string& entry)
{
    if (std::ifstream file(facts_file()); file) {
        before_ = nlohmann::json::parse(file);
    }
    nlohmann::json facts = before_;
    facts[list].push_back(entry);
    write_facts(facts);
}

machine_list_entry::~machine_list_entry()
{
    write_facts(before_);
}

} // namespace nrd::test
