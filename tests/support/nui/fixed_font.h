#pragma once

#include "nui/text/font.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nui::test {

/// A font in which every character is 10 pixels wide and every line 20 high, at any size, so that
/// places of text can be reckoned. Lines end at line feeds, and behind the last blank that lets a
/// line fit its box, or else at the last character that does.
class FixedFont : public Font {
public:
    static constexpr float CharacterWidth = 10;
    static constexpr float LineHeight = 20;

    void draw(const TextLayout& layout, Point position, Color color, TextMarks* marks,
              std::shared_ptr<RenderedText>* picture) override;
    [[nodiscard]] std::int32_t indexAtPoint(const TextLayout& layout, Point point) override;
    [[nodiscard]] TextSize measureText(const TextLayout& layout) override;
    void setFont(const std::string& name) override { faceName = name; }
    [[nodiscard]] float getLineHeight(std::int16_t size, std::int32_t lines) override;
    [[nodiscard]] float getTextWidth(const std::string& text, std::int16_t size) override;
    [[nodiscard]] std::int32_t indexAtX(const std::string& text, std::int16_t size,
                                        float x) override;
    [[nodiscard]] float xAtIndex(const std::string& text, std::int16_t size,
                                 std::int32_t index) override;

    /// What was drawn since the last call, a line each: the text, where, and in which box and
    /// colour; behind it the marks, if there are any: caret, anchor, the two colours.
    [[nodiscard]] std::string takeDrawn();

    /// Draws pictures in which each character is a white block of 8 by 16; needs GL.
    bool makesPictures = false;
    int picturesMade = 0;
    int measured = 0;     ///< calls of measureText
    float extraWidth = 0; ///< that getTextWidth adds to the characters' own

private:
    struct Line {
        std::size_t start; ///< characters
        std::size_t end;   ///< behind the last one that is shown
    };

    [[nodiscard]] static std::vector<Line> linesOf(std::u32string_view text,
                                                   const TextLayout& layout);
    [[nodiscard]] static Point startOf(const Line& line, std::size_t number, std::size_t lines,
                                       const TextLayout& layout);
    [[nodiscard]] static TextureRef pictureOf(const TextLayout& layout);

    std::string drawn_;
};

} // namespace nui::test
