#pragma once

#include <string>
#include <string_view>

namespace nui {

/// The characters of a text as fonts are given them, one for one: what is no character shows as
/// U+FFFD, and control characters but line feeds as blanks.
[[nodiscard]] std::u32string shownText(std::string_view utf8);

} // namespace nui
