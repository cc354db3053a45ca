#include "nui/text/ftgl_face.h"

#include "nui/draw/drawing.h"

#include <algorithm>
#include <cmath>

namespace nui {

namespace {

float pixelsOf(std::int32_t points, unsigned int resolution)
{
    constexpr float PointsOfInch = 72;
    return static_cast<float>(points) * static_cast<float>(resolution) / PointsOfInch;
}

} // namespace

FtglFace::FtglFace(FontFiles& files, std::int32_t size, unsigned int resolution)
    : files_(files), size_(size), resolution_(resolution),
      lineHeight_(std::max(std::round(files.lineHeight() * pixelsOf(size, resolution)), 1.0F)),
      faces_(1)
{
    static_cast<void>(metricsOf(0));
}

FtglMetrics& FtglFace::metricsOf(std::size_t file)
{
    if (file >= faces_.size())
        faces_.resize(file + 1);
    std::unique_ptr<FtglMetrics>& metrics = faces_[file].metrics;
    if (!metrics)
        metrics = std::make_unique<FtglMetrics>(files_.contentOf(file),
                                                static_cast<unsigned int>(size_), resolution_);
    return *metrics;
}

GlyphPages& FtglFace::pagesOf(std::size_t file)
{
    std::unique_ptr<GlyphPages>& pages = faces_[file].pages;
    if (!pages) {
        pages = std::make_unique<GlyphPages>(files_.contentOf(file));
        pages->GlyphLoadFlags(FtglMetrics::LoadFlags);
        setFaceSize(*pages, static_cast<unsigned int>(size_), resolution_);
    }
    return *pages;
}

FtglMetrics::Glyphs FtglFace::glyphsFor(char32_t character)
{
    const std::size_t file = files_.indexFor(character);
    FtglMetrics& metrics = metricsOf(file);
    if (!metrics.isValid())
        return {&metricsOf(0), 0};
    return {&metrics, static_cast<std::uint8_t>(file)};
}

TextLines FtglFace::layOut(std::u32string_view text, float width)
{
    return metricsOf(0).layOut(text, width,
                               [this](char32_t character) { return glyphsFor(character); });
}

void FtglFace::drawRun(const TextLines& lines, std::int32_t first, std::int32_t end, Point origin,
                       Color color)
{
    setColor(color);
    const auto stop = static_cast<std::size_t>(end);
    for (auto start = static_cast<std::size_t>(first); start < stop;) {
        const TextLines::Character& character = lines.characters[start];
        std::size_t next = start + 1;
        while (next < stop && lines.characters[next].file == character.file)
            ++next;
        pagesOf(character.file)
            .Render(lines.text.data() + lines.starts[start], static_cast<int>(next - start),
                    FTPoint(origin.x + character.x, origin.y));
        start = next;
    }
}

} // namespace nui
