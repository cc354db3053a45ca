#include "nui/text/ftgl_font.h"

#include "nui/engine/engine.h"
#include "nui/text/font_files.h"
#include "nui/text/font_size.h"
#include "nui/text/ftgl_face.h"
#include "nui/text/placed_text.h"
#include "nui/text/shown_text.h"

#include <algorithm>
#include <utility>

namespace nui {

namespace {

constexpr float UnlimitedWidth = 1e9F;
constexpr char32_t Ellipsis[] = U"...";

/// Room that a text gets beyond its own box.
float extraWidth(const FtglFace& face)
{
    return static_cast<float>(face.size()) / 5;
}

unsigned int resolution()
{
    constexpr float DotsPerPoint = 72;
    const float scale = Engine::exists() ? engine().metrics.scale : 1;
    return static_cast<unsigned int>(scale * DotsPerPoint);
}

std::int32_t lineCount(const TextLines& lines)
{
    return static_cast<std::int32_t>(lines.lines.size());
}

bool isBlank(char32_t character)
{
    return character == U' ' || character == U'\t' || character == U'\n';
}

/// Lays out what is left of a text that has too many lines, with "..." behind it.
TextLines cutLines(FtglFace& face, std::u32string_view text, const TextLines& whole,
                   std::int32_t maxLines, float width)
{
    const TextLines::Line& last = whole.lines[static_cast<std::size_t>(maxLines) - 1];
    TextLines lines = whole;
    // At blanks alone: a text without one keeps all its lines.
    for (std::int32_t end = last.last; end > 0; --end) {
        const auto place = static_cast<std::size_t>(end);
        if (!isBlank(text[place]))
            continue;
        lines = face.layOut(std::u32string(text.substr(0, place)) + Ellipsis, width);
        if (lineCount(lines) <= maxLines)
            break;
    }
    return lines;
}

} // namespace

FtglFont::FtglFont(const std::string& path)
{
    fontPath = path;
}

FtglFont::~FtglFont() = default;

void FtglFont::forget()
{
    cache_.clear();
    faces_.clear();
    files_.reset();
}

void FtglFont::setFont(const std::string& path)
{
    if (path == fontPath)
        return;
    forget();
    fontPath = path;
}

void FtglFont::setStandIns(std::vector<std::string> paths)
{
    if (paths == standIns_)
        return;
    forget();
    standIns_ = std::move(paths);
}

FtglFace* FtglFont::faceFor(std::int16_t size)
{
    if (!files_) {
        std::vector<std::string> paths = {fontPath};
        paths.insert(paths.end(), standIns_.begin(), standIns_.end());
        files_ = std::make_unique<FontFiles>(paths);
    }
    const std::int32_t points = effectiveFontSize(size);
    const unsigned int dots = resolution();
    std::unique_ptr<FtglFace>& face = faces_[{points, dots}];
    if (!face)
        face = std::make_unique<FtglFace>(*files_, points, dots);
    return face->isValid() ? face.get() : nullptr;
}

const TextLines* FtglFont::linesOf(FtglFace& face, const TextLayout& layout)
{
    if (!(layout.width > 0))
        return nullptr;
    const LineRule rule{.face = &face,
                        .width = layout.wordWrap ? layout.width : UnlimitedWidth,
                        .maxLines = layout.maxLines,
                        .kind = TextKind::Lines};
    CachedLines& cached = cache_.at(rule, layout.text);
    if (cached.state == CachedLines::New)
        layOut(cached, face, rule, layout.text);
    return cached.state == CachedLines::Valid ? &cached.lines : nullptr;
}

void FtglFont::layOut(CachedLines& out, FtglFace& face, const LineRule& rule, std::string_view text)
{
    const std::u32string characters = shownText(text);
    out.lines = face.layOut(characters, rule.width);
    out.state = CachedLines::Valid;
    if (rule.maxLines <= 0 || lineCount(out.lines) <= rule.maxLines)
        return;
    const auto last = static_cast<std::size_t>(rule.maxLines) - 1;
    if (out.lines.lines[last].first < 0)
        out.state = CachedLines::Invalid;
    else
        out.lines = cutLines(face, characters, out.lines, rule.maxLines, rule.width);
}

const TextLines& FtglFont::lineOf(FtglFace& face, const std::string& text)
{
    CachedLines& cached =
        cache_.at({.face = &face, .width = UnlimitedWidth, .kind = TextKind::OneLine}, text);
    if (cached.state == CachedLines::New) {
        std::u32string characters = shownText(text);
        std::ranges::replace(characters, U'\n', U' ');
        cached.lines = face.layOut(characters, UnlimitedWidth);
        cached.state = CachedLines::Valid;
    }
    return cached.lines;
}

TextSize FtglFont::measureText(const TextLayout& layout)
{
    FtglFace* const face = faceFor(layout.size);
    if (face == nullptr)
        return layout.width > 0 ? TextSize{0, 0} : TextSize{}; // a font without glyphs
    const TextLines* const lines = linesOf(*face, layout);
    if (lines == nullptr)
        return {};
    return {lines->width + extraWidth(*face),
            static_cast<float>(lines->lines.size()) * face->lineHeight()};
}

float FtglFont::getLineHeight(std::int16_t size, std::int32_t lines)
{
    FtglFace* const face = faceFor(size);
    return face != nullptr ? face->lineHeight() * static_cast<float>(lines) : 0;
}

float FtglFont::getTextWidth(const std::string& text, std::int16_t size)
{
    FtglFace* const face = faceFor(size);
    return face != nullptr ? lineOf(*face, text).width + extraWidth(*face) : 0;
}

std::int32_t FtglFont::indexAtX(const std::string& text, std::int16_t size, float x)
{
    FtglFace* const face = faceFor(size);
    if (face == nullptr)
        return 0;
    // The place of a character is the width of what is in front of it.
    const std::vector<TextLines::Character>& places = lineOf(*face, text).characters;
    const auto next = std::ranges::find_if(places, [x](const auto& each) { return each.x >= x; });
    if (next == places.begin())
        return 0;
    const bool nextIsNearer = next != places.end() && next->x - x <= x - next[-1].x;
    return static_cast<std::int32_t>(next - places.begin()) - (nextIsNearer ? 0 : 1);
}

float FtglFont::xAtIndex(const std::string& text, std::int16_t size, std::int32_t index)
{
    FtglFace* const face = faceFor(size);
    if (face == nullptr)
        return 0;
    const TextLines& line = lineOf(*face, text);
    return line.characters[static_cast<std::size_t>(std::clamp(index, 0, line.length()))].x;
}

std::int32_t FtglFont::indexAtPoint(const TextLayout& layout, Point point)
{
    FtglFace* const face = faceFor(layout.size);
    const TextLines* const lines = face != nullptr ? linesOf(*face, layout) : nullptr;
    if (lines == nullptr || lines->length() == 0)
        return -1;
    return PlacedText(*face, *lines, layout).indexAt(point);
}

void FtglFont::draw(const TextLayout& layout, Point position, Color color, TextMarks* marks,
                    std::shared_ptr<RenderedText>* /*picture*/)
{
    FtglFace* const face = faceFor(layout.size);
    const TextLines* const lines = face != nullptr ? linesOf(*face, layout) : nullptr;
    if (lines != nullptr)
        PlacedText(*face, *lines, layout).draw(position, color, marks);
}

} // namespace nui
