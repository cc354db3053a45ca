#pragma once

#include "nui/draw/color.h"
#include "nui/draw/geometry.h"
#include "nui/draw/texture.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace nui {

enum class TextAlignment : std::uint32_t { Left = 0, Center = 1, Right = 2 };
enum class VerticalTextAlignment : std::uint32_t { Top = 0, Middle = 1, Bottom = 2 };

/// A text and the box that it is laid out in. Lengths are in window pixels.
struct TextLayout {
    std::string_view text;  ///< UTF-8; lines end at line feeds and wrap at the width
    std::int16_t size = 12; ///< a positive one grows by the engine's fontSizeOffset
    float width = 0;
    float height = 0;
    TextAlignment alignment = TextAlignment::Left;
    VerticalTextAlignment verticalAlignment = VerticalTextAlignment::Top;
    std::int32_t maxLines = 0; ///< more are cut, with "..."; 0 is no limit
    bool wordWrap = true;      ///< without, only line feeds end a line
};

/// Negative sides: there is no layout.
struct TextSize {
    float width = -1;
    float height = -1;

    [[nodiscard]] bool isValid() const { return width >= 0 && height >= 0; }
};

/// The caret and the selection of a field that is drawn. Indices count characters.
struct TextMarks {
    std::int32_t caret = -1; ///< negative draws neither
    std::int32_t anchor = -1;
    Color caretColor = 0;
    Color selectionColor = 0;
    float caretX = 0; ///< out: left edge of the caret's box, from that of the text's box
    float caretY =
        0; ///< out: just above the caret's line, where indexAtPoint finds the line before
};

/// The picture of a text, white with the coverage in alpha. Owns its texture; may outlive the
/// widget, not the GL context.
class RenderedText {
public:
    explicit RenderedText(TextureRef texture) : texture_(texture) {}
    RenderedText(const RenderedText&) = delete;
    RenderedText& operator=(const RenderedText&) = delete;
    ~RenderedText() { freeTexture(texture_); }

    [[nodiscard]] const TextureRef& texture() const { return texture_; }

private:
    TextureRef texture_;
};

/// Measures and draws text. Everything but measuring needs a current GL context; all of it is for
/// the loop's thread.
class Font {
public:
    Font() = default;
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;
    virtual ~Font() = default;

    /// Draws the text with its box's left upper corner at `position`, in window pixels. A font
    /// that draws pictures takes `picture` if it holds one, and else leaves a new one there; null
    /// makes it draw without keeping any. `marks` may be null.
    virtual void draw(const TextLayout& layout, Point position, Color color, TextMarks* marks,
                      std::shared_ptr<RenderedText>* picture) = 0;
    /// The character nearest to a point, which counts from the box's left upper corner. Negative
    /// if there is none.
    [[nodiscard]] virtual std::int32_t indexAtPoint(const TextLayout& layout, Point point) = 0;
    /// The size of the text in a box of the layout's width. The alignments don't matter.
    [[nodiscard]] virtual TextSize measureText(const TextLayout& layout) = 0;
    /// Another face: the name that the kind of font goes by.
    virtual void setFont(const std::string& name) = 0;
    [[nodiscard]] virtual const std::string& getFaceName() const { return faceName; }
    [[nodiscard]] virtual float getLineHeight(std::int16_t size, std::int32_t lines);
    /// Of a text on one line. Fonts that cannot tell throw std::logic_error, also below.
    [[nodiscard]] virtual float getTextWidth(const std::string& text, std::int16_t size);
    /// The index whose place on the line is nearest to `x`, from the start of the text.
    [[nodiscard]] virtual std::int32_t indexAtX(const std::string& text, std::int16_t size,
                                                float x);
    /// Where the caret stands in front of a character, or behind the last one, of a text on one
    /// line; from the start of the text.
    [[nodiscard]] virtual float xAtIndex(const std::string& text, std::int16_t size,
                                         std::int32_t index);

    std::string faceName; ///< of a font of the system
    std::string fontPath; ///< of a font file; may end in "?" and the index of a face in it
};

} // namespace nui
