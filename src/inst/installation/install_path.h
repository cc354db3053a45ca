#pragma once

#include "misc/path.h"

namespace nrd::installation {

/// False for the top of a drive, for an empty path, and for the Windows, Program Files and system
/// folders themselves. Paths are compared by components and case: a separator at the end, or other
/// letter case, makes another path.
bool is_valid_install_path(const misc::path& path);

/// Backslashes only, and one where several stood.
misc::text32 normalise_install_path(std::u32string_view text);

} // namespace nrd::installation
