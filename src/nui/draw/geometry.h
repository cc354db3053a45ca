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

} // namespace nui
