#pragma once

#include <string>

namespace nui::test {

/// A font file beside the test program; its writing is Latin, Greek and Cyrillic.
[[nodiscard]] std::string latinFontFile();
/// One with Korean.
[[nodiscard]] std::string koreanFontFile();

} // namespace nui::test
