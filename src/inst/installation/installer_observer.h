#pragma once

#include "inst/installation/install_decision.h"
#include "misc/text.h"

#include <cstdint>
#include <string>
#include <vector>

namespace nrd::installation {

/// What the engine reports. `id` is one of "installing" (args: the source's file name),
/// "in_file_does_not_exist" (the fileset's `in` as written), "failed_to_copy" (its `in` and `out`),
/// "not_running_as_admin" and "reg_key_does_not_exist" (none).
struct install_event {
    std::string id;
    std::int32_t code = 0; ///< always 0 so far
    std::vector<misc::text32> args;
};

/// Who follows an install. Called on the thread that runs it, with no lock held.
class installer_observer {
public:
    virtual ~installer_observer() = default;
    /// True lets the run go on. The answer to "installing" is not looked at.
    virtual bool report(const install_event& event) = 0;
    /// Told of each decision that the engine makes on its way; nothing hangs on it.
    virtual void decided(const install_decision&) {}
};

} // namespace nrd::installation
