#pragma once

#include "nui/draw/color.h"
#include "nui/draw/geometry.h"
#include "nui/text/font_files.h"
#include "nui/text/ftgl_metrics.h"
#include "nui/text/glyph_pages.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace nui {

/// A font's files in one size.
class FtglFace {
public:
    /// `files` outlive the object. `size` is in points.
    FtglFace(FontFiles& files, std::int32_t size, unsigned int resolution);

    /// False for a file that is no font: then nothing else may be called.
    [[nodiscard]] bool isValid() const { return faces_.front().metrics->isValid(); }
    [[nodiscard]] const FtglMetrics& metrics() const { return *faces_.front().metrics; }
    [[nodiscard]] std::int32_t size() const { return size_; }
    /// In whole pixels, at least 1.
    [[nodiscard]] float lineHeight() const { return lineHeight_; }

    [[nodiscard]] TextLines layOut(std::u32string_view text, float width);
    /// Characters of one line, from `first` to in front of `end`. `origin` is the left end of the
    /// line's base. Needs a GL context; textures come with the first call.
    void drawRun(const TextLines& lines, std::int32_t first, std::int32_t end, Point origin,
                 Color color);

private:
    struct Face {
        std::unique_ptr<FtglMetrics> metrics;
        std::unique_ptr<GlyphPages> pages;
    };

    [[nodiscard]] FtglMetrics& metricsOf(std::size_t file);
    [[nodiscard]] GlyphPages& pagesOf(std::size_t file);
    [[nodiscard]] FtglMetrics::Glyphs glyphsFor(char32_t character);

    FontFiles& files_;
    std::int32_t size_;
    unsigned int resolution_;
    float lineHeight_;
    std::vector<Face> faces_; ///< by file; made when first needed
};

} // namespace nui
