#pragma once

#include <cstdint>
#include <string>

namespace nrd::misc {

/// What the system says of its own word size, asked of the current process.
struct bitness_facts {
    bool kernel_found = false;
    bool has_is_wow64_process2 = false;
    bool call_succeeded = false;       ///< of IsWow64Process2
    std::uint16_t process_machine = 0; ///< 0 for a process that no layer translates
    std::uint16_t native_machine = 0;
    bool is_wow64_process =
        false; ///< answer of IsWow64Process; asked where the newer call is missing
};

bitness_facts query_bitness();

/// By the native machine. A 64-bit process gets false on a Windows without IsWow64Process2, which
/// does not matter here: the installer is a 32-bit program.
bool is_64bit_windows(const bitness_facts& facts = query_bitness());

/// True for a 32-bit process on a 64-bit Windows, by the machine of the process. It differs from
/// is_64bit_windows on a 32-bit Windows that has IsWow64Process2.
bool runs_under_wow64(const bitness_facts& facts = query_bitness());

/// In pixels of the virtual screen.
struct screen_rectangle {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// The primary display without the task bar. Throws std::runtime_error if the system cannot tell.
screen_rectangle get_screen_work_area();

/// The user's language, as a locale name ("en-US") and by Windows' number: the language in the low
/// ten bits, its country above. An empty name if the system cannot tell.
std::string user_locale_name();
std::uint16_t user_language_id();
/// Three letters for the language of the calling thread's keyboard ("ENU", "JPN"); empty if the
/// system cannot tell.
std::string keyboard_language_name();

} // namespace nrd::misc
