#pragma once

#include "inst/installation/installer_observer.h"
#include "inst/installation/spec.h"

#include <vector>

namespace nrd::installer::core {

/// Throws what install() would throw for a variable or a package that `s` lacks, before anything is
/// changed.
void check_spec(const installation::spec& s);

/// The packages that install() copies on this machine, with their filesets expanded and without
/// those that it passes over. Folders that the run itself is going to make are not foreseen.
std::vector<installation::package> packages_to_copy(const installation::spec& s);

/// Carries `s` out: stages the install folder, copies the packages, writes shortcuts, uninstall
/// data, registry values and the path index. `s` itself is not changed. Runs on the caller's
/// thread, and relative sources count from the process's current directory.
///
/// True: finished. False: a step failed and an older installation, if there was one, was put back;
/// what a failed first install copied stays. Any other exception passes through with nothing put
/// back: filesystem_error where the install folder itself cannot be made, std::invalid_argument for
/// a missing variable, std::out_of_range for a shortcut in a spec that has no package.
bool install(const installation::spec& s, installation::installer_observer& observer);

} // namespace nrd::installer::core
