#pragma once

#include "nui/text/text_lines.h"

#include <FTGL/ftgl.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace nui {

/// Sets the size of any of FTGL's fonts, in points, and the dots of an inch. False for a font that
/// doesn't have that size.
bool setFaceSize(FTFont& font, unsigned int size, unsigned int resolution);

/// FTGL's own measures of a face, without anything to draw, and so without GL. It lets the
/// library's layout draw into a record, which tells where every character stands.
class FtglMetrics : private FTFont {
public:
    /// How glyphs are loaded: outlines fitted to the rows of pixels, never to the columns, which
    /// keeps their widths true.
    static constexpr FT_Int LoadFlags = FT_LOAD_TARGET_LIGHT | FT_LOAD_NO_BITMAP;

    /// `file` is a font file's content, and outlives the object.
    FtglMetrics(const std::string& file, unsigned int size, unsigned int resolution);

    /// False for a file that is no font: then nothing else may be called.
    [[nodiscard]] bool isValid() const { return valid_; }
    [[nodiscard]] float heightAboveBase() const { return Ascender(); }
    [[nodiscard]] float depthBelowBase() const { return -Descender(); }

    /// Which of a font's files has a character, and its measures.
    struct Glyphs {
        FtglMetrics* metrics = nullptr;
        std::uint8_t file = 0;
    };
    using GlyphChoice = std::function<Glyphs(char32_t character)>;

    /// `width` is where lines wrap.
    [[nodiscard]] TextLines layOut(std::u32string_view text, float width,
                                   const GlyphChoice& choice);

private:
    FTGlyph* MakeGlyph(FT_GlyphSlot slot) override;
    FTBBox BBox(const wchar_t* text, int length, FTPoint position, FTPoint spacing) override;
    float Advance(const wchar_t* text, int length, FTPoint spacing) override;
    FTPoint Render(const wchar_t* text, int length, FTPoint position, FTPoint spacing,
                   int renderMode) override;
    [[nodiscard]] float LineHeight() const override;

    using FTFont::Advance;
    using FTFont::BBox;
    using FTFont::Render;

    void setText(std::u32string_view text, const GlyphChoice& choice);
    void completeRecord();
    void countIn(std::size_t index);
    void finishLines();
    [[nodiscard]] std::size_t indexOf(const wchar_t* place) const;
    [[nodiscard]] FTBBox boxAt(std::size_t index);
    [[nodiscard]] float advanceAt(std::size_t index);

    std::wstring wide_;                ///< the text being laid out, one unit a character
    std::vector<FtglMetrics*> glyphs_; ///< of each of its characters
    TextLines record_;
    mutable std::int32_t lineBreaks_ = 0;
    bool valid_ = false;
};

} // namespace nui
