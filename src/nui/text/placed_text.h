#pragma once

#include "nui/text/font.h"
#include "nui/text/ftgl_face.h"
#include "nui/text/text_lines.h"

#include <cstdint>

namespace nui {

/// Lines of text in their box: where the alignments put them. Places count from the box's left
/// upper corner. What it is made from outlives it.
class PlacedText {
public:
    PlacedText(FtglFace& face, const TextLines& lines, const TextLayout& layout);

    /// The nearest character, or the text's length; the text is not empty.
    [[nodiscard]] std::int32_t indexAt(Point point) const;
    /// The selection, the text, and the caret. `position` is that of the box in the window.
    void draw(Point position, Color color, TextMarks* marks) const;

private:
    struct Range {
        std::int32_t first = 0;
        std::int32_t end = 0;

        [[nodiscard]] bool isEmpty() const { return first >= end; }
    };

    [[nodiscard]] const TextLines::Character& characterAt(std::int32_t index) const;
    [[nodiscard]] float leftOf(const TextLines::Line& line) const;
    [[nodiscard]] float topOf(std::int32_t line) const;
    /// Of the caret, and of selected text.
    [[nodiscard]] float boxHeight() const;
    /// Of a character, in front of it.
    [[nodiscard]] float xOf(std::int32_t index) const;
    /// The lines that something can be seen of, with the box there.
    [[nodiscard]] Range visibleLines(Point position) const;
    /// The part of a line's characters that something can be seen of. `left` is the line's, in the
    /// window.
    [[nodiscard]] Range visiblePart(Range characters, float left) const;
    void drawSelection(Point position, Range lines, Range selected, Color color) const;
    void drawLine(std::int32_t line, Point position, Range selected, Color color,
                  Color selectedColor) const;
    void drawCaret(Point position, TextMarks& marks, std::int32_t caret) const;

    FtglFace& face_;
    const TextLines& lines_;
    const TextLayout& layout_;
    float lineHeight_;
    float ascender_;
    float top_ = 0;
};

} // namespace nui
