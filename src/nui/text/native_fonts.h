#pragma once

#include "nui/text/system_fonts.h"

#include <string>
#include <vector>

// What the platform knows of its fonts.

namespace nui {

/// With a separator at the end.
[[nodiscard]] std::string nativeFontsFolder();
/// In no order.
[[nodiscard]] std::vector<SystemFont> nativeFonts();
[[nodiscard]] bool nativeFontFileExists(const std::string& path);
/// The face in which the system writes its message boxes.
[[nodiscard]] std::string nativeMessageFace();

} // namespace nui
