#pragma once

#include "nui/text/native_text.h"
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
/// What the system writes its message boxes in.
[[nodiscard]] NativeFont nativeMessageFont();

} // namespace nui
