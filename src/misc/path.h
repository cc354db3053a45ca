#pragma once

#include "misc/text.h"

// The twin that the build picks: boost::filesystem::path itself on Windows, elsewhere a class with
// the same member names and Windows' rules.
#include "platform_path.h"

#include <concepts>
#include <initializer_list>
#include <string>
#include <string_view>

namespace nrd::misc {

path to_path(std::u32string_view text);
path to_path(std::string_view utf8);

/// The path's text as it stands, separators unchanged. Not for what only converts to a path, as
/// any string does on Windows, there by way of the ANSI code page.
template <std::same_as<path> Path> text32 to_text32(const Path& p);
/// For people and logs: with backslashes, however it was written.
std::string to_utf8(const path& p);

/// A call as it stands in the log: the name, "(", the paths joined by "," and ")".
std::string describe_call(std::string_view name, std::initializer_list<path> paths);

} // namespace nrd::misc
