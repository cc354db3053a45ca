#pragma once

#include "misc/path.h"

#include <string>
#include <string_view>

namespace nrd::test {

/// Makes the file, and the folders above it; what it held before is lost.
void write_file(const misc::path& file, std::string_view content);

/// Empty for what cannot be read.
std::string read_file(const misc::path& file);

void make_read_only(const misc::path& file);

} // namespace nrd::test
