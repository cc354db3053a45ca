#include "support/nui/fixed_font.h"

#include "misc/text.h"
#include "misc/utf8.h"
#include "nui/draw/drawing.h"
#include "nui/draw/surface.h"

#include <SDL2/SDL_surface.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

namespace nui::test {

namespace {

constexpr int BlockWidth = 8;
constexpr int BlockHeight = 16;
constexpr float Ascender = 16;

std::string hex(Color color)
{
    std::array<char, 9> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x", color);
    return digits.data();
}

std::string number(float value)
{
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%g", static_cast<double>(value));
    return digits.data();
}

} // namespace

std::vector<FixedFont::Line> FixedFont::linesOf(std::u32string_view text, const TextLayout& layout)
{
    const std::size_t room =
        layout.wordWrap
            ? static_cast<std::size_t>(std::max(std::floor(layout.width / CharacterWidth), 1.0F))
            : text.size() + 1;
    std::vector<Line> lines;
    std::size_t start = 0;
    for (;;) {
        const std::size_t feed = std::min(text.find(U'\n', start), text.size());
        if (feed - start <= room) {
            lines.push_back({start, feed});
            if (feed == text.size())
                return lines;
            start = feed + 1;
            continue;
        }
        // A blank at the end of a line may stick out.
        const std::size_t blank = text.rfind(U' ', start + room);
        const bool fits = blank != std::u32string_view::npos && blank > start;
        lines.push_back({start, fits ? blank : start + room});
        start = fits ? blank + 1 : start + room;
    }
}

Point FixedFont::startOf(const Line& line, std::size_t number, std::size_t lines,
                         const TextLayout& layout)
{
    const float width = static_cast<float>(line.end - line.start) * CharacterWidth;
    const float height = static_cast<float>(lines) * LineHeight;
    const auto share = static_cast<float>(layout.alignment) / 2;
    const auto shareDown = static_cast<float>(layout.verticalAlignment) / 2;
    return {(layout.width - width) * share,
            (layout.height - height) * shareDown + static_cast<float>(number) * LineHeight};
}

TextSize FixedFont::measureText(const TextLayout& layout)
{
    ++measured;
    if (!(layout.width > 0))
        return {};
    const std::u32string text = nrd::misc::to_text32(layout.text);
    std::vector<Line> lines = linesOf(text, layout);
    if (layout.maxLines > 0 && lines.size() > static_cast<std::size_t>(layout.maxLines))
        lines.resize(static_cast<std::size_t>(layout.maxLines));
    std::size_t longest = 0;
    for (const Line& line : lines)
        longest = std::max(longest, line.end - line.start);
    return {static_cast<float>(longest) * CharacterWidth,
            static_cast<float>(lines.size()) * LineHeight};
}

std::int32_t FixedFont::indexAtPoint(const TextLayout& layout, Point point)
{
    if (!(layout.width > 0) || layout.text.empty())
        return -1;
    const std::vector<Line> lines = linesOf(nrd::misc::to_text32(layout.text), layout);
    const Point top = startOf(lines[0], 0, lines.size(), layout);
    const auto last = static_cast<float>(lines.size() - 1);
    const auto row = static_cast<std::size_t>(
        std::clamp(std::floor((point.y - top.y) / LineHeight), 0.0F, last));
    const Line& line = lines[row];
    const Point start = startOf(line, row, lines.size(), layout);
    const auto length = static_cast<float>(line.end - line.start);
    const float column = std::clamp(std::round((point.x - start.x) / CharacterWidth), 0.0F, length);
    return static_cast<std::int32_t>(line.start + static_cast<std::size_t>(column));
}

float FixedFont::getLineHeight(std::int16_t /*size*/, std::int32_t lines)
{
    return static_cast<float>(lines) * LineHeight;
}

float FixedFont::getTextWidth(const std::string& text, std::int16_t /*size*/)
{
    return static_cast<float>(nrd::misc::count_code_points(text)) * CharacterWidth + extraWidth;
}

std::int32_t FixedFont::indexAtX(const std::string& text, std::int16_t /*size*/, float x)
{
    const auto length = static_cast<float>(nrd::misc::count_code_points(text));
    return static_cast<std::int32_t>(std::clamp(std::round(x / CharacterWidth), 0.0F, length));
}

float FixedFont::xAtIndex(const std::string& text, std::int16_t /*size*/, std::int32_t index)
{
    const auto length = static_cast<std::int32_t>(nrd::misc::count_code_points(text));
    return static_cast<float>(std::clamp(index, 0, length)) * CharacterWidth;
}

void FixedFont::draw(const TextLayout& layout, Point position, Color color, TextMarks* marks,
                     std::shared_ptr<RenderedText>* picture)
{
    drawn_ += "'" + std::string(layout.text) + "' at " + number(position.x) + "," +
              number(position.y) + " in " + number(layout.width) + "x" + number(layout.height) +
              " " + hex(color);
    if (layout.maxLines != 0)
        drawn_ += " lines " + std::to_string(layout.maxLines);
    if (marks != nullptr && marks->caret >= 0) {
        drawn_ += " caret " + std::to_string(marks->caret) + " anchor " +
                  std::to_string(marks->anchor) + " " + hex(marks->caretColor) + " " +
                  hex(marks->selectionColor);
        const std::vector<Line> lines = linesOf(nrd::misc::to_text32(layout.text), layout);
        std::size_t row = lines.size() - 1;
        while (row > 0 && lines[row].start > static_cast<std::size_t>(marks->caret))
            --row;
        const Point start = startOf(lines[row], row, lines.size(), layout);
        const auto column = static_cast<float>(marks->caret) - static_cast<float>(lines[row].start);
        marks->caretX = start.x + column * CharacterWidth;
        marks->caretY = start.y + Ascender - LineHeight;
    }
    drawn_ += '\n';
    if (!makesPictures || picture == nullptr)
        return;
    if (!*picture) {
        ++picturesMade;
        *picture = std::make_shared<RenderedText>(pictureOf(layout));
    }
    setColor(color);
    const TextureRef& texture = (*picture)->texture();
    const std::array<TexturePoint, 4> corners{{{0, 0}, {0, 1}, {1, 1}, {1, 0}}};
    texturedQuad(&texture, position.x, position.y, static_cast<float>(texture.width),
                 static_cast<float>(texture.height), corners.data());
}

TextureRef FixedFont::pictureOf(const TextLayout& layout)
{
    const auto width = static_cast<std::int32_t>(std::ceil(layout.width));
    const auto height = static_cast<std::int32_t>(std::ceil(layout.height));
    std::vector<std::uint32_t> pixels(
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0x00FFFFFF);
    const std::u32string text = nrd::misc::to_text32(layout.text);
    const std::vector<Line> lines = linesOf(text, layout);
    const SurfacePtr picture(SDL_CreateRGBSurfaceWithFormatFrom(
        pixels.data(), width, height, 32, width * 4, SDL_PIXELFORMAT_ABGR8888));
    for (std::size_t row = 0; row < lines.size(); ++row) {
        const Point start = startOf(lines[row], row, lines.size(), layout);
        SDL_Rect block{static_cast<int>(start.x), static_cast<int>(start.y), BlockWidth,
                       BlockHeight};
        for (std::size_t i = lines[row].start; i < lines[row].end; ++i) {
            SDL_FillRect(picture.get(), &block, OpaqueWhite);
            block.x += static_cast<int>(CharacterWidth);
        }
    }
    return makeTexture(pixels.data(), width, height);
}

std::string FixedFont::takeDrawn()
{
    return std::exchange(drawn_, "");
}

} // namespace nui::test
