#include "support/denied_key.h"

#include "misc/posix/machine.h"

#include <fstream>
#include <nlohmann/json.hpp>

namespace nrd::test {

struct denied_key::restorer {
    nlohmann::json before;
};

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

denied_key::denied_key(const misc::text32& path) : restorer_(new restorer)
{
    restorer_->before = nlohmann::json::object();
    if (std::ifstream file(facts_file()); file) {
        restorer_->before = nlohmann::json::parse(file);
    }
    nlohmann::json facts = restorer_->before;
    facts["denied_keys"].push_back(misc::to_utf8(path));
    write_facts(facts);
}

denied_key::~denied_key()
{
    write_facts(restorer_->before);
}

} // namespace nrd::test
