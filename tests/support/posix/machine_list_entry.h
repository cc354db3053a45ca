#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace nrd::test {

/// While it lives, one of the lists in machine.json ("denied", "locked", ...) holds an entry more.
/// Several end in the reverse order of their beginning.
class machine_list_entry {
public:
    machine_list_entry(const std::string& list, const std::string& entry);
    ~machine_list_entry();
    machine_list_entry(const machine_list_entry&) = delete;
    machine_list_entry& operator=(const machine_list_entry&) = delete;

private:
    nlohmann::json before_ = nlohmann::json::object();
};

} // namespace nrd::test
