#pragma once

#include "misc/text.h"

#include <memory>

namespace nrd::test {

/// While it lives, the system denies every access to a registry key and to what lies below.
class denied_key {
public:
    /// The key exists.
    explicit denied_key(const misc::text32& path);
    ~denied_key();
    denied_key(const denied_key&) = delete;
    denied_key& operator=(const denied_key&) = delete;

private:
    struct restorer;
    std::unique_ptr<restorer> restorer_;
};

} // namespace nrd::test
