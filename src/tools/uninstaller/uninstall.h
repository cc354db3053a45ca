#pragma once

#include "misc/path.h"

namespace nrd::uninstaller {

/// Removes what the uninstall.xml lists. True if all of it is gone, and the install folder may go
/// as well; the log tells what is in the way. Nothing is touched if the file is missing or broken,
/// or while a program runs that may use the installed files. Throws as the import, and for an
/// uninstall.xml that lacks the variables that every install writes.
bool uninstall(const misc::path& uninstall_xml);

} // namespace nrd::uninstaller
