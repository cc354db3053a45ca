#pragma once

#include "inst/installation/spec.h"

namespace nrd::vs_installer {

/// Completes a freshly imported spec for this product and machine: system folders, the packages
/// that apply, the keys that link the product into CorelDRAW, and the host folder of each plug-in
/// fileset. Not to be run twice on one spec, as each run removes packages or filesets.
///
/// Always true. Throws std::invalid_argument without "INSTALLER_CODE" or for a host that is no
/// program, std::out_of_range if the packages that have fixed places are not there, and
/// filesystem_error if the shared data folder cannot be made.
bool configure_install_locations(installation::spec& s);

} // namespace nrd::vs_installer
