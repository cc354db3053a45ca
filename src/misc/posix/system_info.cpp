#include "misc/system_info.h"

#include "misc/posix/machine.h"

#include <string_view>

namespace nrd::misc {

namespace {

// The numbers by which Windows calls x86 and x86-64 machines.
constexpr std::uint16_t machine_i386 = 0x014c;
constexpr std::uint16_t machine_amd64 = 0x8664;

struct numbered_language {
    std::string_view name;
    std::uint16_t number;
};

/// Windows' numbers of languages. Countries are not told apart: nothing asks for them.
constexpr numbered_language language_numbers[] = {
    {"zh", 4},  {"cs", 5},  {"da", 6},  {"de", 7},  {"en", 9},  {"es", 10}, {"fr", 12}, {"it", 16},
    {"ja", 17}, {"ko", 18}, {"nl", 19}, {"pl", 21}, {"pt", 22}, {"ru", 25}, {"sv", 29},
};
constexpr std::uint16_t no_language = 0x1400; // what Windows calls a custom one

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

std::string user_locale_name()
{
    return this_machine().language;
}

std::uint16_t user_language_id()
{
    const std::string name = user_locale_name();
    for (const numbered_language& each : language_numbers) {
        if (name.starts_with(each.name)) {
            return each.number;
        }
    }
    return no_language;
}

std::string keyboard_language_name()
{
    return this_machine().keyboard;
}

} // namespace nrd::misc
