#pragma once

#include <optional>
#include <string>
#include <string_view>

// Numbers as people write them.

namespace nui {

/// With so many decimals, from 0 to 9, and no thousands' marks.
[[nodiscard]] std::string numberText(double value, int decimals, bool decimalComma);

/// Takes a point or a comma for the decimals, a sign, and white space around. Empty for anything
/// else, also for what is beyond all numbers.
[[nodiscard]] std::optional<double> numberFrom(std::string_view text);

} // namespace nui
