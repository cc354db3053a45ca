#include "misc/system_info.h"

namespace nrd::misc {

bool is_64bit_windows(const bitness_facts& facts)
{
    if (!facts.kernel_found) {
        return false;
    }
    if (facts.has_is_wow64_process2) {
        return facts.call_succeeded && facts.native_machine != 0;
    }
    return facts.is_wow64_process;
}

bool runs_under_wow64(const bitness_facts& facts)
{
    if (facts.has_is_wow64_process2) {
        return facts.call_succeeded && facts.process_machine != 0;
    }
    return facts.is_wow64_process;
}

} // namespace nrd::misc
