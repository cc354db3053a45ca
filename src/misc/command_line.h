#pragma once

#include "misc/path.h"

#include <optional>
#include <string>
#include <vector>

// What the command line changes for the whole process. Each is empty until an option sets it; an
// option with an empty value counts as set.

namespace nrd::misc {

std::optional<path>& desktop_override();
std::optional<path>& prefs_override();
std::optional<std::string>& lang_override();

/// Reads "--desktop", "--prefs" and "--lang" into the overrides; `args` holds the program's name
/// first. A value is not used up: the word behind an option is looked at as an option too. The last
/// word is never an option, later ones win, and everything else is ignored.
void parse_command_line(const std::vector<std::string>& args);

} // namespace nrd::misc
