#pragma once

#include "inst/installation/install_decision.h"
#include "inst/installation/installer_observer.h"
#include "inst/installation/spec.h"
#include "misc/path.h"

#include <vector>

// Copies what the packages of a spec describe, one file at a time. A step that the file system
// refuses raises install_error without asking the observer; a missing source, and a folder that
// cannot be read, are the observer's to decide.

namespace nrd::installer::core {

installation::package_verdict judge_package(const installation::package& pack);

/// The filesets, expanded, that install_file() does not pass over as things stand now.
std::vector<installation::fileset> filesets_to_copy(const installation::package& pack,
                                                    const installation::spec& s);

void install_packs(const std::vector<installation::package>& packages, const installation::spec& s,
                   installation::installer_observer& observer);
void install_pack(const installation::package& pack, const installation::spec& s,
                  installation::installer_observer& observer);
void install_files(const std::vector<installation::fileset>& filesets, const installation::spec& s,
                   installation::installer_observer& observer);
void install_file(const installation::fileset& f, const installation::spec& s,
                  installation::installer_observer& observer);

/// `out` takes the place of `in`; an `out` that is a folder receives a file under its own name.
/// Existing files are overwritten. Throws filesystem_error if a folder cannot be read.
void copy_recursive(const misc::path& in, const misc::path& out,
                    installation::installer_observer& observer);

} // namespace nrd::installer::core
