#include "misc/system_info.h"

#include "misc/posix/machine.h"

namespace nrd::misc {

namespace {

// The numbers by which Windows calls x86 and x86-64 machines.
constexpr std::uint16_t machine_i386 = 0x014c;
constexpr std::uint16_t machine_amd64 = 0x8664;

} // namespace

bitness_facts query_bitness()
{
    // The program stands for the 32-bit product, and a 32-bit machine for an old Windows, on which
    // every way of asking gives the same answer.
    bitness_facts facts;
    facts.kernel_found = true;
    if (this_machine().bits == 64) {
        facts.has_is_wow64_process2 = true;
        facts.call_succeeded = true;
        facts.process_machine = machine_i386;
        facts.native_machine = machine_amd64;
    }
    return facts;
}

screen_rectangle get_screen_work_area()
{
    // A full HD display with the task bar at its lower edge.
    return {0, 0, 1920, 1040};
}

} // namespace nrd::misc
