#pragma once

#include "inst/installation/installer_observer.h"
#include "inst/installation/spec.h"

#include <vector>

namespace nrd::installer::core {

/// Writes, or deletes, the registry values of a spec. A refused or missing key is reported to the
/// observer; if it does not let the run go on, install_error is thrown, else that value is left
/// out. The deletion of a value is not guarded so: registry_error passes through.
void install_reg_keys(const std::vector<installation::reg_key>& keys, const installation::spec& s,
                      installation::installer_observer& observer);

} // namespace nrd::installer::core
