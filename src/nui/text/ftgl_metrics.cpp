#include "nui/text/ftgl_metrics.h"

#include "misc/text.h"

#include <algorithm>
#include <cwctype>
#include <memory>

namespace nui {

namespace {

/// A glyph that is measured only.
class MeasuredGlyph : public FTGlyph {
public:
    explicit MeasuredGlyph(FT_GlyphSlot slot) : FTGlyph(slot) {}
    const FTPoint& Render(const FTPoint& pen, int /*renderMode*/) override { return pen; }
};

constexpr char32_t LastOfOneUnit = 0xFFFF;
constexpr wchar_t SomeCharacter = L'\xFFFD';
/// The library may look at what follows a text's end.
constexpr std::size_t BeyondEnd = 4;

} // namespace

bool setFaceSize(FTFont& font, unsigned int size, unsigned int resolution)
{
    // The library sets a size with the resolution that it was given with the size before.
    font.FaceSize(size + 1, resolution);
    return font.FaceSize(size, resolution);
}

FtglMetrics::FtglMetrics(const std::string& file, unsigned int size, unsigned int resolution)
    : FTFont(reinterpret_cast<const unsigned char*>(file.data()), file.size())
{
    // Settled once: later errors are those of single glyphs.
    valid_ = Error() == 0;
    if (!valid_)
        return;
    GlyphLoadFlags(LoadFlags);
    valid_ = setFaceSize(*this, size, resolution);
}

FTGlyph* FtglMetrics::MakeGlyph(FT_GlyphSlot slot)
{
    return std::make_unique<MeasuredGlyph>(slot).release(); // the library's from now on
}

// The library's layout goes through wide text, whose units are characters on some systems only. It
// looks at it for blanks and line feeds; what it measures is the true text, at the same place.

void FtglMetrics::setText(std::u32string_view text, const GlyphChoice& choice)
{
    record_ = {};
    lineBreaks_ = 0;
    record_.text = nrd::misc::to_utf8(text);
    record_.starts.reserve(text.size() + 1);
    std::uint32_t start = 0;
    for (const char32_t character : text) {
        record_.starts.push_back(start);
        start += character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    }
    record_.starts.push_back(start);
    record_.characters.assign(text.size() + 1, {});
    glyphs_.clear();
    glyphs_.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        const Glyphs chosen = choice(text[index]);
        glyphs_.push_back(chosen.metrics);
        record_.characters[index].file = chosen.file;
    }
    wide_.assign(text.size() + BeyondEnd, L'\0');
    std::ranges::transform(text, wide_.begin(), [](char32_t character) {
        return character <= LastOfOneUnit ? static_cast<wchar_t>(character) : SomeCharacter;
    });
}

std::size_t FtglMetrics::indexOf(const wchar_t* place) const
{
    return static_cast<std::size_t>(place - wide_.data());
}

FTBBox FtglMetrics::boxAt(std::size_t index)
{
    return glyphs_[index]->FTFont::BBox(record_.text.data() + record_.starts[index], 1, FTPoint(),
                                        FTPoint());
}

float FtglMetrics::advanceAt(std::size_t index)
{
    return glyphs_[index]->FTFont::Advance(record_.text.data() + record_.starts[index], 1,
                                           FTPoint());
}

FTBBox FtglMetrics::BBox(const wchar_t* text, int /*length*/, FTPoint /*position*/,
                         FTPoint /*spacing*/)
{
    return boxAt(indexOf(text));
}

float FtglMetrics::Advance(const wchar_t* text, int /*length*/, FTPoint /*spacing*/)
{
    return advanceAt(indexOf(text));
}

FTPoint FtglMetrics::Render(const wchar_t* text, int /*length*/, FTPoint position,
                            FTPoint /*spacing*/, int /*renderMode*/)
{
    const std::size_t index = indexOf(text);
    // The library may step over a line feed at the start of a text, and over the end.
    if (index >= glyphs_.size() || *text == L'\n')
        return position;
    TextLines::Character& character = record_.characters[index];
    character.x = position.Xf();
    character.line = lineBreaks_;
    character.drawn = true;
    return position + FTPoint(advanceAt(index), 0);
}

float FtglMetrics::LineHeight() const
{
    ++lineBreaks_; // asked for once at the end of each line but the last
    return FTFont::LineHeight();
}

TextLines FtglMetrics::layOut(std::u32string_view text, float width, const GlyphChoice& choice)
{
    setText(text, choice);
    FTSimpleLayout layout;
    layout.SetFont(this);
    layout.SetLineLength(width);
    layout.Render(wide_.c_str(), -1, FTPoint(), FTGL::RENDER_ALL);
    completeRecord();
    return std::move(record_);
}

/// Gives each character that the library has dropped the place where the pen was.
void FtglMetrics::completeRecord()
{
    record_.lines.resize(static_cast<std::size_t>(lineBreaks_) + 1);
    TextLines::Character next;
    for (std::size_t index = 0; index < glyphs_.size(); ++index) {
        TextLines::Character& character = record_.characters[index];
        if (!character.drawn)
            character = next;
        // A text that is narrower than its characters has lines that nothing is in.
        character.line = std::min(character.line, lineBreaks_);
        countIn(index);
        if (wide_[index] == L'\n')
            next = {.line = character.line + 1};
        else
            next = {.x = record_.lines[static_cast<std::size_t>(character.line)].end,
                    .line = character.line};
    }
    next.line = std::min(next.line, lineBreaks_);
    record_.characters.back() = next;
    finishLines();
}

/// Grows the character's line.
void FtglMetrics::countIn(std::size_t index)
{
    const TextLines::Character& character = record_.characters[index];
    TextLines::Line& line = record_.lines[static_cast<std::size_t>(character.line)];
    if (line.isEmpty())
        line.first = static_cast<std::int32_t>(index);
    line.last = static_cast<std::int32_t>(index);
    line.end = character.x;
    if (!character.drawn)
        return;
    line.end += advanceAt(index);
    const FTBBox box = boxAt(index);
    const float left = character.x + box.Lower().Xf();
    line.left = line.hasBox ? std::min(line.left, left) : left;
    line.right = std::max(line.right, character.x + box.Upper().Xf());
    line.hasBox = true;
    if (std::iswspace(static_cast<std::wint_t>(wide_[index])) == 0)
        line.width = line.end;
}

void FtglMetrics::finishLines()
{
    TextLines::Line box;
    for (TextLines::Line& line : record_.lines) {
        if (line.isEmpty() && &line == &record_.lines.back()) {
            line.first = record_.length();
            line.last = line.first - 1;
        }
        if (!line.hasBox)
            continue;
        box.left = box.hasBox ? std::min(box.left, line.left) : line.left;
        box.right = std::max(box.right, line.right);
        box.hasBox = true;
    }
    record_.width = box.right - box.left;
}

} // namespace nui
