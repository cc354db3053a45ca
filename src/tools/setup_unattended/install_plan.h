#pragma once

#include "inst/installation/install_decision.h"
#include "inst/installation/spec.h"
#include "misc/planned_changes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What an installation would do on this machine. The plan is made by running the engine itself
// while changes are only recorded, so it holds what the engine decides and nothing else.

namespace nrd::tools {

struct planned_fileset {
    installation::fileset_decision decision;
    std::vector<misc::planned_change> files; ///< copies only
};

struct planned_package {
    installation::package_decision decision;
    std::vector<planned_fileset> filesets; ///< none for a package that is left out
};

struct spec_plan {
    misc::path working_directory; ///< of its install.xml
    std::string app_name;         ///< UTF-8
    bool already_installed = false;
    misc::path install_path;
    bool backs_up = false;      ///< an older folder is moved aside first
    bool installs_over = false; ///< an older folder cannot be moved aside
    std::vector<planned_package> packages;
    std::vector<misc::path> new_folders;
    std::vector<misc::path> written_files; ///< made by the installer itself
    std::vector<installation::shortcut_decision> shortcuts;
    std::vector<misc::planned_change> registry; ///< values set and deleted, keys made and deleted
    std::vector<installation::path_entry_decision> path_entries;
};

struct install_plan {
    std::vector<spec_plan> specs;
    std::vector<std::string> blockers;       ///< listed programs that run now
    std::uint64_t bytes_needed = 0;          ///< of all files that are copied
    std::optional<std::uint64_t> bytes_free; ///< where the install folder lies
    /// Sources that are not there: an installation would stop at the first of them.
    std::vector<misc::path> missing_sources;
    /// Registry keys that the system refuses; an installation goes on without what is for them.
    std::vector<misc::text32> refused_keys;
    /// Steps that fail also when nothing is changed; what comes behind one is not in the plan.
    std::vector<installation::failure_decision> failures;
};

/// `changes` is the one that is active. Throws what the engine throws.
install_plan make_plan(const installation::specs& specs, const misc::planned_changes& changes);

} // namespace nrd::tools
