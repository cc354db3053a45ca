#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace nrd::misc {

/// The folder that stands for one Windows machine: `<folder>/c` is drive C:, `registry.json` its
/// registry, and `machine.json` says what only the machine knows.
struct machine {
    std::filesystem::path folder;
    int bits = 64;                  ///< "bits": 64, or 32 for a Windows that has no IsWow64Process2
    std::string user = "user";      ///< "user": the name of the profile folder
    std::string language = "en-US"; ///< "language": the user's, a locale name
    std::string keyboard = "ENU";   ///< "keyboard": its language, in Windows' three letters
    std::vector<std::string> denied; ///< "denied": nothing at or below these paths may be changed
    std::vector<std::string> locked; ///< "locked": files that some other program holds open
    std::vector<std::string> denied_keys; ///< "denied_keys": registry keys that refuse every access
};

/// The machine that VS5_MACHINE names, else the one in the user's data folder. It is read once.
/// Throws std::invalid_argument if machine.json is there and is not as told above.
const machine& this_machine();

/// Forgets it, so that the next question reads it anew; for tests that go from machine to machine.
void forget_machine();

} // namespace nrd::misc
