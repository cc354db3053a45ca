#pragma once

#include "inst/installation/spec.h"
#include "misc/path.h"

#include <deque>

// What an installation leaves behind so that it can be removed.

namespace nrd::installer::core {

/// Appends the records of the system's list of installed programs to `work.reg_keys`; nothing is
/// written yet. Throws std::invalid_argument without "APP_NAME", "APP_VERSION" or "PUBLISHER".
void add_uninstall_keys(installation::spec& work, const misc::path& final_path);

/// The spec for uninstall.xml, in which the `out` of each fileset names a file that the uninstaller
/// removes. It is made from the sources, relative to the current directory, before anything is
/// copied, and holds all packages, also those for other systems. Throws filesystem_error if a
/// source folder cannot be read.
installation::spec create_uninstall_spec(const installation::spec& work,
                                         const misc::text32& final_path);

/// Adds one fileset for each regular file below `in`, of which there may be very many: a deque
/// grows without holding them twice.
void expand_directory(const installation::spec& s, std::deque<installation::fileset>& filesets,
                      const misc::path& in, const misc::path& out);

/// Writes the batch file that runs the uninstaller from a temporary copy of its folder and then
/// removes the install folder. Without the folder "uninstaller.dir" there is silently none.
void create_uninstall_bat(const misc::path& final_path);

} // namespace nrd::installer::core
