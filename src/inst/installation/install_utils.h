#pragma once

#include "inst/installation/spec.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

// What the wizard and the engine ask of specs and of the machine.

namespace nrd::installation {

/// Whether the system lists a program of this name; what its key holds is not judged.
/// Throws std::invalid_argument without "APP_NAME".
bool is_installed(const spec& s);

/// Where the system says the program is, quotation marks included; empty if it is not installed.
text32 install_location(const spec& s);

/// The files that the packages for `os` (or for "all") bring. Sources count from the current
/// directory, unexpanded; `bits` plays no part, so an install may copy fewer.
std::size_t count_files(const std::vector<package>& packages, const std::string& os);

/// Packages for `os` or "all", and the filesets in them.
std::pair<std::size_t, std::size_t>
count_packages_and_filesets(const std::vector<package>& packages, const std::string& os);

/// The blocking programs that run now; one that two specs name comes twice.
std::vector<std::string> blocker_processes(const specs& all);

/// Removes the record's value, or the whole key if the record names no value. The path is taken as
/// it is stored. Throws registry_error if the system denies it.
void delete_reg_key(const reg_key& key);

} // namespace nrd::installation
