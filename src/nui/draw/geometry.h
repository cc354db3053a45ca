#pragma once

namespace nui {

/// In window pixels, y down.
struct Point {
    float x = 0;
    float y = 0;
};

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Rect&) const = default;
};

/// A length without its fraction. What no screen can show is cut off first, so that whatever a
/// layout comes to can be turned into pixels.
[[nodiscard]] inline int wholePixels(float length)
{
    constexpr float Limit = 1 << 20;
    if (!(length > -Limit))
        return static_cast<int>(-Limit);
    return static_cast<int>(length < Limit ? length : Limit);
}

[[nodiscard]] inline Rect pixelRect(float x, float y, float width, float height)
{
    return {wholePixels(x), wholePixels(y), wholePixels(width), wholePixels(height)};
}

} // namespace nui
