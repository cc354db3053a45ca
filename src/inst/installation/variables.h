#pragma once

#include "misc/text.h"

#include <functional>
#include <string_view>

namespace nrd::installation {

using misc::text32;

/// Gives a variable's raw value for its name, or the second argument for an unknown one.
using variable_lookup = std::function<text32(const text32& name, const text32& fallback)>;

/// The name in the first placeholder `${NAME}`; empty if there is none, and also if a "}" stands
/// anywhere before it.
text32 first_var_name(std::u32string_view text);

/// Replaces placeholders until none is left whose variable is known; unknown ones stay as they are.
/// Values may hold placeholders themselves. One that leads back to itself never ends.
///
/// A name takes part as a regular expression (ECMAScript), and a value as its replacement format:
/// "$&", "$$" and "$1" in a value are format escapes. A name that is no valid expression throws
/// std::regex_error.
text32 substitute_vars(std::u32string_view text, const variable_lookup& lookup);

/// Whether a variable of this value brings it into a text unchanged, and leaves the text's other
/// placeholders alone.
bool is_taken_as_written(std::u32string_view value);

/// Every separator becomes a backslash, and each pair of them becomes one: three keep two, and a
/// network path loses one of its two.
text32 normalise_separators(std::u32string_view text);

} // namespace nrd::installation
