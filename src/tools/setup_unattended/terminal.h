#pragma once

#include <cstddef>
#include <memory>

namespace nrd::tools {

/// Columns of the terminal that standard output goes to; 0 if it goes elsewhere.
std::size_t terminal_width();

/// Makes the terminal take UTF-8, and the escape that clears a line, until the result dies.
[[nodiscard]] std::shared_ptr<void> use_utf8_terminal();

/// Lets the program go on when nobody reads its output any more, so that it is not ended in the
/// middle of an installation.
void outlive_readers();

} // namespace nrd::tools
