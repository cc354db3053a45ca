#pragma once

#include "misc/path.h"
#include "streams/stream.h"

#include <cstdint>
#include <optional>
#include <string>

// The process's named streams. A stream is made when it is first written to or set; it lives as
// long as the process. No call here fails in a way that the caller sees, and none takes a lock:
// streams are made and set on the main thread while no other thread runs, written from any.

namespace nrd::streams {

void stream_write(const std::string& name, const char* text, std::size_t length);
void stream_write_lazy(const std::string& name, const stream::producer& make_text);

void set_stream_console(const std::string& name, bool on);
/// Switched on, this opens a file named by the local time in "Tavrolen Corporation/log/<name>" of
/// the settings folder. The folder is never made here: without it the stream has no file.
void set_stream_file(const std::string& name, bool on);
/// Any value but 0 switches both outputs off, whatever they are set to.
void set_stream_muted(const std::string& name, std::int32_t value);

/// The stream of that name, for observers beyond the console and the file.
stream_subject& find_stream(const std::string& name);

/// The file that the stream writes to, if it writes to one.
std::optional<misc::path> stream_file_path(const std::string& name);

} // namespace nrd::streams
