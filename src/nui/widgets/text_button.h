#pragma once

#include "nui/layout/edges.h"
#include "nui/widgets/form.h"
#include "nui/widgets/text_label.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace nui {

/// A text with padding that can be clicked, which raises plain_event::Activate on it, and that
/// stands in forms.
class TextButton : public Cloneable<TextButton, TextLabel>, public FormItem {
public:
    void drawContent() override;
    void measure() override;
    bool layout(std::uint32_t flags) override;
    bool read(NuiReader& reader) override;
    void setText(const std::string& newText) override;
    [[nodiscard]] const char* className() const override { return "TextButton"; }

    /// Lets clicks and keys activate it. Reading does this, so a button that no layout file
    /// describes is armed by its maker.
    virtual void armClick();

    Edges padding;
    Size minWidth; ///< of a side that is sized by content
    Size minHeight;
    std::int32_t maxLines = 0; ///< 0 is no limit
    bool wordWrap = true;
    std::uint32_t rotation = 0; ///< clockwise quarter turns, 0 to 3

protected:
    /// Room of the text as the text runs, before its rotation, which is about the box's centre;
    /// from the left upper corner of the widget.
    struct TextBox {
        float left = 0;
        float top = 0;
        float width = 0;
        float height = 0;
    };

    [[nodiscard]] std::string_view shownText() const override;
    /// What the size is measured from.
    [[nodiscard]] virtual std::string_view measuredText() const { return shownText(); }
    /// Called before the text is measured anew.
    virtual void prepareText() {}
    [[nodiscard]] const TextBox& textBox() const { return textBox_; }
    /// Fills a part of the text's box, turned as the text is.
    void fillTextBox(const TextBox& part) const;
    /// The shown text in its box.
    [[nodiscard]] TextLayout boxLayout() const;
    /// Shown in place of the text unless it is empty.
    void setDisplayText(std::string shown);
    [[nodiscard]] const std::string& displayText() const { return displayText_; }

private:
    [[nodiscard]] bool isTurned() const { return rotation % 2 == 1; }
    /// False for one line that goes on whatever the width.
    [[nodiscard]] bool breaksLines() const;
    [[nodiscard]] bool isOneLine() const;
    [[nodiscard]] bool isMeasured() const { return widthMode == Content || heightMode == Content; }
    [[nodiscard]] float paddingOf(Axis axis) const;
    void setContentSize(TextSize text);
    void placeTextBox();

    std::string displayText_;
    TextBox textBox_;
};

} // namespace nui
