#include "nui/widgets/text_label.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/reader/nui_reader.h"
#include "nui/text/font_size.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace nui {

namespace {

constexpr std::array<const char*, 4> AlignmentNames = {"Left", "Center", "Right", nullptr};
constexpr std::array<const char*, 4> VerticalAlignmentNames = {"Top", "Middle", "Bottom", nullptr};

constexpr std::int16_t SmallFont = 12;
constexpr std::int16_t MediumFont = 15;
constexpr std::int16_t LargeFont = 18;

template <class Enum>
void readWord(NuiReader& reader, Enum& out, const char* key, const char* const* names)
{
    auto index = static_cast<std::uint32_t>(out);
    reader.readEnum(index, key, names);
    out = static_cast<Enum>(index);
}

/// Truncated, as fonts come in whole sizes.
std::int16_t wholeSize(float size)
{
    constexpr float Limit = std::numeric_limits<std::int16_t>::max();
    if (!(size > -Limit))
        return -std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(size < Limit ? size : Limit);
}

/// Other units have no meaning for a font and change nothing.
std::int16_t fontSizeOf(const Size& read, std::int16_t current)
{
    switch (read.mode) {
    case Px:
        return wholeSize(read.value / engine().metrics.scale);
    case Pt:
        return wholeSize(read.value);
    case Small:
        return SmallFont;
    case Medium:
        return MediumFont;
    case Large:
        return LargeFont;
    default:
        return current;
    }
}

} // namespace

bool TextLabel::read(NuiReader& reader)
{
    readLabelKeys(reader);
    return true;
}

void TextLabel::readLabelKeys(NuiReader& reader)
{
    Widget::read(reader);
    if (reader.readString(textKey_, "text", true)) {
        // An empty one takes a template's text away.
        if (textKey_.empty())
            setText("");
        reloadText();
    }
    Size size;
    if (reader.readSize(size, "fontSize"))
        fontSize = fontSizeOf(size, fontSize);
    readWord(reader, textAlignment, "textAlignment", AlignmentNames.data());
    readWord(reader, verticalTextAlignment, "verticalTextAlignment", VerticalAlignmentNames.data());
}

void TextLabel::reloadText()
{
    if (!textKey_.empty())
        setText(engine().lang ? engine().lang->getString(textKey_) : textKey_);
}

void TextLabel::setText(const std::string& newText)
{
    if (newText == text_)
        return;
    storeText(newText);
    measure();
}

void TextLabel::storeText(std::string newText)
{
    text_ = std::move(newText);
    dropPicture();
}

void TextLabel::measure()
{
    if (widthMode != Content && heightMode != Content)
        return;
    if (widthMode == Content)
        width = Unbounded;
    if (heightMode == Content)
        height = Unbounded;
    Font* const measuring = font();
    const TextSize size =
        measuring != nullptr ? measuring->measureText(textLayout(width, height)) : TextSize{0, 0};
    if (widthMode == Content)
        width = size.width;
    if (heightMode == Content)
        height = size.height;
    limitContent();
}

void TextLabel::limitContent()
{
    if (widthMode == Content && maxWidth > 0)
        width = std::min(width, maxWidth);
    if (heightMode == Content && maxHeight > 0)
        height = std::min(height, maxHeight);
}

void TextLabel::drawContent()
{
    drawText(textLayout(width, height), {x, y});
}

Font* TextLabel::font() const
{
    return engine().fonts.defaultFont.get();
}

TextLayout TextLabel::textLayout(float boxWidth, float boxHeight) const
{
    TextLayout layout;
    layout.text = shownText();
    layout.size = fontSize;
    layout.width = boxWidth;
    layout.height = boxHeight;
    layout.alignment = textAlignment;
    layout.verticalAlignment = verticalTextAlignment;
    return layout;
}

void TextLabel::drawText(const TextLayout& layout, Point position)
{
    Font* const drawing = font();
    const Color faded = fadedBy(color, drawAlpha);
    if (drawing == nullptr || layout.text.empty() || alphaOf(faded) == 0)
        return;
    checkPicture(*drawing, layout);
    drawing->draw(layout, position, faded, nullptr, &renderedText_);
}

const TextureRef* TextLabel::requirePicture(const TextLayout& layout, Point position)
{
    Font* const drawing = font();
    if (drawing == nullptr || layout.text.empty())
        return nullptr;
    checkPicture(*drawing, layout);
    if (!renderedText_) {
        // Nothing of it shows; it only leaves its picture behind.
        const Rect clip = getClip();
        setClip({0, 0, 0, 0});
        drawing->draw(layout, position, color, nullptr, &renderedText_);
        setClip(clip);
    }
    return renderedText_ ? &renderedText_->texture() : nullptr;
}

TextSize TextLabel::drawnSize(const TextLayout& layout)
{
    Font* const drawing = font();
    if (drawing == nullptr)
        return {};
    checkPicture(*drawing, layout);
    if (!drawnSize_)
        drawnSize_ = drawing->measureText(layout);
    return *drawnSize_;
}

void TextLabel::dropPicture()
{
    renderedText_.reset();
    drawnSize_.reset();
}

void TextLabel::checkPicture(Font& drawing, const TextLayout& layout)
{
    const PictureRule rule{
        &drawing,         effectiveFontSize(layout.size), layout.width,    layout.height,
        layout.alignment, layout.verticalAlignment,       layout.maxLines, layout.wordWrap};
    if (rule == pictureRule_)
        return;
    pictureRule_ = rule;
    dropPicture();
}

} // namespace nui
