#pragma once

#include "nui/text/font.h"
#include "nui/text/native_text.h"
#include "nui/text/text_cache.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace nui {

/// Draws pictures of text as the platform itself writes it: GDI on Windows, Pango elsewhere. Text
/// that does not fit its box ends in "...". Draws no caret and knows no place of a character.
class WinFont : public Font {
public:
    /// See setFont.
    explicit WinFont(const std::string& name);

    void draw(const TextLayout& layout, Point position, Color color, TextMarks* marks,
              std::shared_ptr<RenderedText>* picture) override;
    /// Always negative.
    [[nodiscard]] std::int32_t indexAtPoint(const TextLayout& layout, Point point) override;
    [[nodiscard]] TextSize measureText(const TextLayout& layout) override;
    /// A face; an empty name stands for that of the system's message boxes.
    void setFont(const std::string& name) override;
    [[nodiscard]] float getLineHeight(std::int16_t size, std::int32_t lines) override;
    [[nodiscard]] float getTextWidth(const std::string& text, std::int16_t size) override;
    /// After a change of the language, whose characters may have other widths.
    void forgetMeasures() { measures_.clear(); }

private:
    struct MeasureRule {
        std::int32_t pixels = 0; ///< size of the font
        std::int32_t width = 0;
        bool wrap = true;

        bool operator==(const MeasureRule&) const = default;
    };

    void useSize(std::int16_t size);
    /// In the current size.
    [[nodiscard]] PixelSize measured(std::string_view text, std::int32_t width, bool wrap);
    /// As much of a text as its first lines rest on, so many and some more.
    [[nodiscard]] std::string_view beginning(std::string_view text, std::int32_t width, bool wrap,
                                             std::int32_t lines);
    /// Null if the platform has no memory for the picture.
    [[nodiscard]] std::shared_ptr<RenderedText> render(const TextLayout& layout);

    NativeFont font_;
    std::map<std::int32_t, NativeFacePtr> faces_; ///< by size in pixels
    std::int32_t size_;
    const NativeFace* face_ = nullptr; ///< of the current size
    std::int32_t lineHeight_ = 0;
    TextCache<MeasureRule, std::optional<PixelSize>> measures_;
};

} // namespace nui
