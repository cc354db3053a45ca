#pragma once

#include <cstddef>
#include <string_view>

namespace nrd::misc {

// Reading UTF-8 where it stands, without a copy. What counts as a character is as in to_text32().

/// Reads one code point and moves `at`, which is inside the text, behind it. A malformed sequence
/// uses up one byte and reads as U+FFFD.
char32_t next_code_point(std::string_view utf8, std::size_t& at);

[[nodiscard]] std::size_t count_code_points(std::string_view utf8);

} // namespace nrd::misc
