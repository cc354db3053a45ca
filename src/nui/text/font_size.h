#pragma once

#include <cstdint>

namespace nui {

/// A size as the fonts take it, above 0. A positive one grows by the engine's fontSizeOffset; a
/// negative one is meant as it stands, whatever the user has set.
[[nodiscard]] std::int32_t effectiveFontSize(std::int16_t size);

} // namespace nui
