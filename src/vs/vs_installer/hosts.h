#pragma once

#include "misc/path.h"
#include "misc/text.h"

#include <vector>

// Finds the host applications, CorelDRAW and Adobe Illustrator, in the registry and on the disk.
// Nothing is known of their versions: a version is a name that was found.

namespace nrd::vs_installer {

struct host_app {
    misc::text32 key;  ///< registry subkey or folder under which it was found
    misc::text32 name; ///< what install.xml refers to, such as "CorelDRAW Graphics Suite 2020"
    misc::text32 path;
    bool is_32_bit = false;
};

std::vector<host_app> find_corel_hosts();

/// `flag` has no effect. Throws as exe_is_32_bit for an Illustrator.exe that is no program of
/// either kind.
std::vector<host_app> find_adobe_hosts(bool flag);

/// Throws std::invalid_argument, with the path in the text, for a missing file, for one that is no
/// program, and for a program that is neither 32-bit nor 64-bit.
bool exe_is_32_bit(const misc::path& path);

} // namespace nrd::vs_installer
