#pragma once

#include "misc/path.h"
#include "misc/text.h"

#include <vector>

namespace nrd::sample_machine {

struct sample_host {
    misc::text32 name; ///< as install.xml names it, without the word size
    int bits = 0;
    misc::path folder;
    misc::path program; ///< a tiny_program
};

/// Puts hosts for the sample package onto this machine: one of each maker in 64 bit, which a 32-bit
/// Windows goes without, and one in 32 bit, each registered as its own installer would. What is
/// there already is written again. Throws filesystem_error, registry_error, or std::runtime_error
/// for a file that cannot be written.
std::vector<sample_host> prepare_sample_hosts();

} // namespace nrd::sample_machine
