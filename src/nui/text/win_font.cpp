#include "nui/text/win_font.h"

#include "misc/text.h"
#include "nui/draw/drawing.h"
#include "nui/text/font_size.h"
#include "nui/text/native_fonts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace nui {

namespace {

constexpr std::int32_t NoSize = std::numeric_limits<std::int32_t>::min();
/// Of a picture, in pixels: what every GL takes.
constexpr std::int32_t LongestSide = 8192;
/// Wider than any text, and a number that platforms can count with.
constexpr float WidestBox = 1000000;

/// Measuring and drawing round a box alike, up, or they would break lines at different words.
std::int32_t boxSide(float length)
{
    return static_cast<std::int32_t>(std::ceil(std::min(length, WidestBox)));
}

std::int32_t pictureSide(float length)
{
    return std::min(boxSide(length), LongestSide);
}

std::shared_ptr<RenderedText> uploaded(const Coverage& picture)
{
    constexpr std::uint8_t Full = 255;
    std::vector<std::array<std::uint8_t, 4>> pixels(picture.pixels.size());
    std::ranges::transform(picture.pixels, pixels.begin(), [](std::uint8_t coverage) {
        return std::array<std::uint8_t, 4>{Full, Full, Full, coverage};
    });
    return std::make_shared<RenderedText>(
        makeTexture(pixels.data(), picture.width, picture.height));
}

} // namespace

WinFont::WinFont(const std::string& name) : size_(NoSize)
{
    WinFont::setFont(name);
}

void WinFont::setFont(const std::string& name)
{
    const NativeFont font = name.empty() ? nativeMessageFont() : NativeFont{.face = name};
    if (font == font_)
        return;
    faces_.clear();
    measures_.clear();
    size_ = NoSize;
    face_ = nullptr;
    font_ = font;
    faceName = font.face;
}

void WinFont::useSize(std::int16_t size)
{
    const std::int32_t pixels = effectiveFontSize(size);
    if (pixels == size_)
        return;
    NativeFacePtr& face = faces_[pixels];
    if (!face)
        face = openNativeFace(font_, pixels);
    size_ = pixels;
    face_ = face.get();
    lineHeight_ = nativeLineHeight(*face_);
}

PixelSize WinFont::measured(std::string_view text, std::int32_t width, bool wrap)
{
    std::optional<PixelSize>& size =
        measures_.at({.pixels = size_, .width = width, .wrap = wrap}, text);
    if (!size)
        size = measureNativeText(*face_, std::string(text), width, wrap);
    return *size;
}

std::string_view WinFont::beginning(std::string_view text, std::int32_t width, bool wrap,
                                    std::int32_t lines)
{
    // The last line of a beginning may break elsewhere than in the whole text, and one more tells
    // whether the text goes on.
    const std::int32_t enough = (lines + 2) * lineHeight_;
    for (std::size_t length = 4096; length < text.size(); length *= 2) {
        while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
            ++length;
        const std::string_view start = text.substr(0, length);
        if (measureNativeText(*face_, std::string(start), width, wrap).height >= enough)
            return start;
    }
    return text;
}

float WinFont::getLineHeight(std::int16_t size, std::int32_t lines)
{
    useSize(size);
    return static_cast<float>(lineHeight_ * lines);
}

TextSize WinFont::measureText(const TextLayout& layout)
{
    if (!(layout.width > 0))
        return {};
    useSize(layout.size);
    PixelSize size = measured(layout.text, boxSide(layout.width), layout.wordWrap);
    if (layout.maxLines > 0)
        size.height = std::min(size.height, layout.maxLines * lineHeight_);
    return {static_cast<float>(size.width), static_cast<float>(size.height)};
}

float WinFont::getTextWidth(const std::string& text, std::int16_t size)
{
    useSize(size);
    std::string line = text;
    std::ranges::replace(line, '\n', ' ');
    return static_cast<float>(measured(line, boxSide(WidestBox), false).width);
}

std::int32_t WinFont::indexAtPoint(const TextLayout& /*layout*/, Point /*point*/)
{
    return -1;
}

std::shared_ptr<RenderedText> WinFont::render(const TextLayout& layout)
{
    useSize(layout.size);
    Coverage picture(pictureSide(layout.width), pictureSide(layout.height));
    NativeTextBox box{.alignment = layout.alignment, .wrap = layout.wordWrap};
    // A box that is lower than a line shows a part of it rather than nothing.
    box.lines = std::max(picture.height / std::max(lineHeight_, 1), 1);
    if (layout.maxLines > 0)
        box.lines = std::min(box.lines, layout.maxLines);
    const std::string text(beginning(layout.text, picture.width, layout.wordWrap, box.lines));
    const std::int32_t needed = measured(text, picture.width, layout.wordWrap).height;
    const std::int32_t free = picture.height - std::min(needed, box.lines * lineHeight_);
    if (layout.verticalAlignment == VerticalTextAlignment::Middle)
        box.top = free / 2;
    else if (layout.verticalAlignment == VerticalTextAlignment::Bottom)
        box.top = free;
    return drawNativeText(*face_, text, box, picture) ? uploaded(picture) : nullptr;
}

void WinFont::draw(const TextLayout& layout, Point position, Color color, TextMarks* /*marks*/,
                   std::shared_ptr<RenderedText>* picture)
{
    if (!(layout.width > 0) || !(layout.height > 0) || layout.text.empty())
        return;
    std::shared_ptr<RenderedText> own;
    std::shared_ptr<RenderedText>& shown = picture != nullptr ? *picture : own;
    if (!shown)
        shown = render(layout);
    if (!shown)
        return;
    constexpr std::array<TexturePoint, 4> Whole = {{{0, 0}, {0, 1}, {1, 1}, {1, 0}}};
    const TextureRef& texture = shown->texture();
    setColor(color);
    // Between pixels it would be blurred.
    texturedQuad(&texture, std::round(position.x), std::round(position.y),
                 static_cast<float>(texture.width), static_cast<float>(texture.height),
                 Whole.data());
}

} // namespace nui
