#pragma once

#include "inst/installation/spec.h"
#include "tools/uninstaller/file_removal.h"

namespace nrd::uninstaller {

struct removal_result {
    /// With anything in it, the uninstaller's own files and the entry in the system's list of
    /// programs are still there as well, so that it can be tried again.
    leftovers left;
    /// The install folder is, or holds, a folder of someone else's: it must not go as a whole.
    bool install_folder_is_shared = false;
};

/// Undoes the install that `s`, the content of an uninstall.xml, was written by. The install folder
/// itself stays, and what is in it without being listed. Nothing is given up on because something
/// before it could not be removed. Throws std::invalid_argument, before anything is removed,
/// without "APP_NAME" or "APP_INSTALL_PATH", and filesystem_error if the uninstaller's own folder
/// cannot be read.
removal_result remove_installation(const installation::spec& s);

} // namespace nrd::uninstaller
