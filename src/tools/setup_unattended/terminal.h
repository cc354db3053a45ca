#pragma once

#include <cstddef>

namespace nrd::tools {

/// Columns of the terminal that standard output goes to; 0 if it goes elsewhere.
std::size_t terminal_width();

/// Makes the terminal take UTF-8 for as long as the process runs.
void use_utf8_terminal();

} // namespace nrd::tools
