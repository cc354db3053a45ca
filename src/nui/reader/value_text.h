#pragma once

#include "nui/draw/color.h"
#include "nui/layout/size_mode.h"

#include <string_view>

// The texts that stand for values in layout files.

namespace nui {

/// A number and a unit: "12", "2.5pt", "50%", "?". Without a number it is 1; a number that cannot
/// be understood is 0. False for an unknown unit: only the value is set then.
bool parseSize(std::string_view text, Size& size);

/// "#" and hexadecimal digits. The last six are red, green and blue; those in front of them are
/// lost, and what follows another character as well. The alpha is 0.
[[nodiscard]] Color parseHexColor(std::string_view text);

} // namespace nui
