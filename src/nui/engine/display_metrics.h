#pragma once

#include <cstdint>

namespace nui {

/// What is known of display 0, and the scales that follow from it.
struct DisplayMetrics {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t smallerSide = 0;
    std::int32_t usableWidth = 0; ///< without task bars
    std::int32_t usableHeight = 0;
    float displayScale = 0; ///< diagonal DPI / 72; 1 when the display won't tell
    float textScale = 0;    ///< the application's factor times displayScale
    float scale = 1;        ///< the application's factor

    /// Asks the system again; answers whether the display scale changed.
    bool read();
    void setScale(float factor);
};

} // namespace nui
