#pragma once

#include "nui/draw/color.h"
#include "nui/draw/geometry.h"
#include "nui/text/ftgl_metrics.h"

#include <FTGL/ftgl.h>

#include <cstdint>
#include <memory>
#include <string>

namespace nui {

/// A font file in one size.
class FtglFace {
public:
    /// `file` is a font file's content, and outlives the object. `size` is in points.
    FtglFace(const std::string& file, std::int32_t size, unsigned int resolution);

    /// False for a file that is no font: then nothing else may be called.
    [[nodiscard]] bool isValid() const { return metrics_.isValid(); }
    [[nodiscard]] FtglMetrics& metrics() { return metrics_; }
    [[nodiscard]] std::int32_t size() const { return size_; }

    /// Characters of one line, from `first` to in front of `end`. `origin` is the left end of the
    /// line's base. Needs a GL context; textures come with the first call.
    void drawRun(const TextLines& lines, std::int32_t first, std::int32_t end, Point origin,
                 Color color);

private:
    const std::string& file_;
    std::int32_t size_;
    unsigned int resolution_;
    FtglMetrics metrics_;
    std::unique_ptr<FTTextureFont> glyphs_;
};

} // namespace nui
