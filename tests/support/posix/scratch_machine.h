#pragma once

#include "misc/path.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace nrd::test {

/// While it lives, the process works on a machine of its own, empty but for machine.json.
class scratch_machine {
public:
    /// `facts` is the content of machine.json; without it there is no such file.
    explicit scratch_machine(std::string_view facts = {});
    ~scratch_machine();
    scratch_machine(const scratch_machine&) = delete;
    scratch_machine& operator=(const scratch_machine&) = delete;

    /// Of the host.
    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
    /// Changes what the machine is.
    void set_facts(std::string_view facts) const;

private:
    std::filesystem::path folder_;
    std::string before_;
};

} // namespace nrd::test
