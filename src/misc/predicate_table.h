#pragma once

#include <map>
#include <string>

namespace nrd::misc {

using predicate = bool (*)();

/// Questions that lower modules ask by name, so that they need not know who can answer them. One
/// table for the process; filled at start-up, before any other thread exists.
std::map<std::string, predicate>& predicate_table();

} // namespace nrd::misc
