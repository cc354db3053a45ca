#pragma once

#include "nui/text/font.h"
#include "nui/text/text_cache.h"
#include "nui/text/text_lines.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace nui {

class FontFiles;
class FtglFace;

/// Draws text from a font file glyph by glyph, and knows the place of each character, as fields
/// need. A file that is missing, or no font, is a font without glyphs: nothing shows, and there is
/// no layout.
class FtglFont : public Font {
public:
    explicit FtglFont(const std::string& path);
    ~FtglFont() override;

    /// `picture` is left alone.
    void draw(const TextLayout& layout, Point position, Color color, TextMarks* marks,
              std::shared_ptr<RenderedText>* picture) override;
    [[nodiscard]] std::int32_t indexAtPoint(const TextLayout& layout, Point point) override;
    [[nodiscard]] TextSize measureText(const TextLayout& layout) override;
    /// A path; see Font::fontPath.
    void setFont(const std::string& path) override;
    /// Font files for the characters that the font's own lacks, in this order.
    void setStandIns(std::vector<std::string> paths);
    [[nodiscard]] float getLineHeight(std::int16_t size, std::int32_t lines) override;
    [[nodiscard]] float getTextWidth(const std::string& text, std::int16_t size) override;
    [[nodiscard]] std::int32_t indexAtX(const std::string& text, std::int16_t size,
                                        float x) override;
    [[nodiscard]] float xAtIndex(const std::string& text, std::int16_t size,
                                 std::int32_t index) override;

private:
    enum class TextKind : std::uint8_t { Lines, OneLine };
    /// What the lines of a text depend on.
    struct LineRule {
        const FtglFace* face = nullptr;
        float width = 0;
        std::int32_t maxLines = 0;
        TextKind kind = TextKind::Lines;

        bool operator==(const LineRule&) const = default;
    };
    struct CachedLines {
        enum State : std::uint8_t { New, Valid, Invalid };

        State state = New;
        TextLines lines = {};
    };

    [[nodiscard]] FtglFace* faceFor(std::int16_t size);
    /// Null if there is no layout. Valid until the next call.
    [[nodiscard]] const TextLines* linesOf(FtglFace& face, const TextLayout& layout);
    /// All of a text on one line, line feeds too.
    [[nodiscard]] const TextLines& lineOf(FtglFace& face, const std::string& text);
    static void layOut(CachedLines& out, FtglFace& face, const LineRule& rule,
                       std::string_view text);

    void forget();

    std::vector<std::string> standIns_;
    std::unique_ptr<FontFiles> files_; ///< null until needed
    std::map<std::pair<std::int32_t, unsigned int>, std::unique_ptr<FtglFace>> faces_;
    TextCache<LineRule, CachedLines> cache_;
};

} // namespace nui
