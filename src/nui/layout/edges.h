#pragma once

#include "nui/layout/size_mode.h"

namespace nui {

enum class Axis { X, Y };

constexpr Axis across(Axis axis)
{
    return axis == Axis::X ? Axis::Y : Axis::X;
}

/// Room at the four sides of a rectangle: margin (outside) or padding (inside).
struct Edges {
    float top = 0;
    float right = 0;
    float bottom = 0;
    float left = 0;
    SizeMode topMode = Px;
    SizeMode rightMode = Px;
    SizeMode bottomMode = Px;
    SizeMode leftMode = Px;

    /// Pixels at the left or top side, percentages being of `reference`.
    [[nodiscard]] float start(Axis axis, float reference) const
    {
        return axis == Axis::X ? resolveEdge({left, leftMode}, reference)
                               : resolveEdge({top, topMode}, reference);
    }

    /// Pixels at the right or bottom side.
    [[nodiscard]] float end(Axis axis, float reference) const
    {
        return axis == Axis::X ? resolveEdge({right, rightMode}, reference)
                               : resolveEdge({bottom, bottomMode}, reference);
    }

    [[nodiscard]] float both(Axis axis, float reference) const
    {
        return start(axis, reference) + end(axis, reference);
    }
};

} // namespace nui
