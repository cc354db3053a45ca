#pragma once

#include "inst/installation/spec.h"
#include "misc/path.h"

#include <optional>

namespace nrd::installer::core {

/// Where an install goes, and where what stood there before was put meanwhile.
struct install_directory {
    misc::path final_path;                   ///< ends in one backslash
    std::optional<misc::path> backup_path{}; ///< set even if the older folder could not be moved
    misc::path install_path;                 ///< the files are copied here; equals final_path
};

/// Settles the folder of "APP_INSTALL_PATH", moves an older installation aside, makes the folder,
/// and gives the variable its final form. Throws filesystem_error if the folder cannot be made or
/// its back-up not be named.
install_directory setup_install_directory(installation::spec& local);

/// After a run that succeeded: the back-up goes. Errors are logged only.
void finish_install_directory(const install_directory& dir);

/// After a run that failed: the new folder goes and the back-up comes back. Without a back-up,
/// nothing is touched. Errors are logged only.
void restore_backup(const install_directory& dir);

/// A name beside `final_path`, which must exist: its canonical path, "_" and 32 random hexadecimal
/// digits. restore_backup counts on these 33 characters.
misc::path unique_backup_path(const misc::path& final_path);

} // namespace nrd::installer::core
