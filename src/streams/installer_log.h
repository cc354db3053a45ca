#pragma once

#include <source_location>
#include <string>
#include <string_view>

/// Writes one line to the stream "installer": the place of the call, "file:line: ", and `text`
/// (UTF-8). May be called from any thread.
void installer_log(std::string_view text,
                   const std::source_location& where = std::source_location::current());

namespace nrd::streams {

/// The line as it goes into the stream. The message is cut at every ":"; with two or more pieces
/// the first, a source path, is cut to its last component; then each piece is written with a ":"
/// behind it, the last one included. Readers of logs count on this shape, accidents and all: a path
/// with a drive letter stays whole, and a colon at the end comes out doubled.
std::string shape_log_line(std::string_view message);

/// The log callback of the toolkit: `text` goes to the stream "installer" as it is.
void toolkit_log(std::string_view text);

} // namespace nrd::streams
