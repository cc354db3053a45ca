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

/// The alpha byte times the factor, truncated.
constexpr Color fadedBy(Color color, float factor)
{
    return withAlpha(
        color, static_cast<std::uint32_t>(static_cast<float>(alphaOf(color)) * factor) & 0xFFU);
}

} // namespace nui
