#pragma once

#include "misc/text.h"

#include <string>

namespace nrd::test {

/// What lies in a registry key, as UTF-8: a line "name = data" for each value, by name ("(default)"
/// for the one without), then each subkey as "[Sub\Key]" and its own. Empty for a missing key.
std::string registry_text(const misc::text32& key);

/// The path of a key that no one else uses; it is missing at first, and removed in the end.
class scratch_key {
public:
    scratch_key();
    ~scratch_key();
    scratch_key(const scratch_key&) = delete;
    scratch_key& operator=(const scratch_key&) = delete;

    [[nodiscard]] const misc::text32& path() const { return path_; }
    [[nodiscard]] misc::text32 operator/(const misc::text32& below) const;

private:
    misc::text32 path_;
};

} // namespace nrd::test
