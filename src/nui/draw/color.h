#pragma once

#include <cstdint>

namespace nui {

/// Red, green, blue, alpha in memory order: red in the lowest byte, alpha in the highest.
using Color = std::uint32_t;

constexpr Color OpaqueWhite = 0xFFFFFFFF;
constexpr Color OpaqueBlack = 0xFF000000;
constexpr Color AlphaMask = 0xFF000000;

constexpr std::uint32_t alphaOf(Color color)
{
    return color >> 24U;
}

constexpr Color withAlpha(Color color, std::uint32_t alpha)
{
    return (color & ~AlphaMask) | (alpha << 24U);
}

/// The alpha byte times the factor, truncated; animations may swing beyond both ends.
constexpr Color fadedBy(Color color, float factor)
{
    const float alpha = static_cast<float>(alphaOf(color)) * factor;
    if (!(alpha > 0))
        return withAlpha(color, 0);
    return withAlpha(color, alpha < 255 ? static_cast<std::uint32_t>(alpha) : 255);
}

} // namespace nui
