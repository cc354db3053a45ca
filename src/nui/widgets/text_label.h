#pragma once

#include "nui/text/font.h"
#include "nui/widgets/reloadable_text.h"
#include "nui/widgets/widget.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace nui {

/// A widget with a text, which is looked up in the language when it is read. It wraps at the
/// widget's width. What its font drew is kept as a picture until something about it changes, so
/// an unchanged label costs one quad a frame.
class TextLabel : public Cloneable<TextLabel, Widget>, public ReloadableText {
public:
    void drawContent() override;
    void measure() override;
    bool read(NuiReader& reader) override;
    void reloadText() override;
    [[nodiscard]] const char* className() const override { return "TextLabel"; }

    /// UTF-8; what is malformed shows as replacement characters. Marks nothing dirty: who wants
    /// the layout to follow the text asks the screen. The text of a layout file's key comes back
    /// when the language changes.
    virtual void setText(const std::string& newText);
    [[nodiscard]] virtual const std::string& getText() const { return text_; }

    std::int16_t fontSize = 12; ///< a negative one does not grow with the engine's fontSizeOffset
    TextAlignment textAlignment = TextAlignment::Left;
    VerticalTextAlignment verticalTextAlignment = VerticalTextAlignment::Middle;

protected:
    /// The keys of a label alone, for what extends one with keys of its own.
    void readLabelKeys(NuiReader& reader);
    /// Null until the engine has chosen its fonts.
    [[nodiscard]] virtual Font* font() const;
    /// What is drawn.
    [[nodiscard]] virtual std::string_view shownText() const { return text_; }
    /// The widget's text as it is drawn in a box of that size.
    [[nodiscard]] TextLayout textLayout(float boxWidth, float boxHeight) const;
    /// Draws the widget's text in its colour.
    void drawText(const TextLayout& layout, Point position);
    /// The same as a picture; null while there is none.
    [[nodiscard]] const TextureRef* requirePicture(const TextLayout& layout, Point position);
    /// How much of its box the drawn text fills; measured once for a picture.
    [[nodiscard]] TextSize drawnSize(const TextLayout& layout);
    void dropPicture();
    /// Cuts what is sized by the text to maxWidth and maxHeight.
    void limitContent();
    [[nodiscard]] const std::string& textKey() const { return textKey_; }
    /// Replaces the text without further ado.
    void storeText(std::string newText);

    /// Stands for a side that is measured from the text.
    static constexpr float Unbounded = 1000000;

private:
    /// What the picture depends on, but for the text.
    struct PictureRule {
        Font* font = nullptr;
        std::int32_t size = 0; ///< with the engine's fontSizeOffset
        float width = 0;
        float height = 0;
        TextAlignment alignment = TextAlignment::Left;
        VerticalTextAlignment verticalAlignment = VerticalTextAlignment::Top;
        std::int32_t maxLines = 0;
        bool wordWrap = true;

        bool operator==(const PictureRule&) const = default;
    };

    /// Lets the picture go if it is of something else than the layout.
    void checkPicture(Font& drawing, const TextLayout& layout);

    std::string textKey_;
    std::string text_;
    std::shared_ptr<RenderedText> renderedText_;
    std::optional<TextSize> drawnSize_;
    PictureRule pictureRule_;
};

} // namespace nui
