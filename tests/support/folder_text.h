#pragma once

#include "misc/path.h"

#include <string>

namespace nrd::test {

/// All that lies in a folder, one line each, in the system's order: "name\" for a folder, followed
/// by what is in it, and "name: content" for a file. Content that does not fit on a line of its own
/// is told by its size, as "name: 2048 bytes". Empty for a folder that is missing or empty.
std::string folder_text(const misc::path& folder);

} // namespace nrd::test
