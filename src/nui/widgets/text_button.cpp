#include "nui/widgets/text_button.h"

#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/reader/nui_reader.h"
#include "nui/widgets/click_rule.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace nui {

namespace {

constexpr std::uint32_t DegreesOfTurn = 90;
constexpr std::uint32_t MostTurns = 3;

// The corners of a texture: left top, left bottom, right bottom, right top.
constexpr std::array<TexturePoint, 4> TextureCorners = {{{0, 0}, {0, 1}, {1, 1}, {1, 0}}};

/// How much of the room that a text leaves free stands before it.
float shareBefore(TextAlignment alignment)
{
    return static_cast<float>(alignment) / 2;
}

/// A direction after clockwise quarter turns.
Point turned(Point direction, std::uint32_t quarterTurns)
{
    for (; quarterTurns > 0; --quarterTurns)
        direction = {-direction.y, direction.x};
    return direction;
}

void readOwnSize(NuiReader& reader, Size& out, const char* key)
{
    Size read = out;
    if (reader.readSize(read, key))
        out = read;
}

} // namespace

bool TextButton::read(NuiReader& reader)
{
    armClick();
    TextLabel::read(reader);
    reader.readEdges(padding, "padding");
    readOwnSize(reader, minWidth, "minWidth");
    readOwnSize(reader, minHeight, "minHeight");
    reader.readInt(maxLines, "maxLines");
    reader.readBool(wordWrap, "wordWrap");
    reader.readBool(isDefault, "default");
    std::uint32_t degrees = 0;
    if (reader.readUnsigned(degrees, "rotation")) {
        const std::uint32_t turns = degrees / DegreesOfTurn;
        // Turns beyond the full one are no turns at all.
        rotation = turns > MostTurns ? 0 : turns;
    }
    if (getText().empty())
        reloadText();
    return true;
}

void TextButton::armClick()
{
    armClickRule(*this);
    armKeyboardRule(*this);
}

void TextButton::setText(const std::string& newText)
{
    if (newText != getText())
        setDisplayText("");
    TextLabel::setText(newText);
}

void TextButton::setDisplayText(std::string shown)
{
    if (shown == displayText_)
        return;
    displayText_ = std::move(shown);
    dropPicture();
}

std::string_view TextButton::shownText() const
{
    return displayText_.empty() ? TextLabel::shownText() : displayText_;
}

bool TextButton::layout(std::uint32_t /*flags*/)
{
    prepareText();
    const bool known = measureUnknown();
    placeTextBox();
    return known;
}

bool TextButton::breaksLines() const
{
    return wordWrap || maxLines != 1;
}

/// One long line that is never broken, whatever the room.
bool TextButton::isOneLine() const
{
    const SizeMode along = isTurned() ? heightMode : widthMode;
    return !breaksLines() && along != Content;
}

float TextButton::paddingOf(Axis axis) const
{
    // Of a side that isn't known yet, percentages are nothing.
    return padding.both(axis, std::max(axis == Axis::X ? width : height, 0.0F));
}

void TextButton::measure()
{
    prepareText();
    if (isMeasured()) {
        float along = widthMode == Content ? Unbounded : width - paddingOf(Axis::X);
        float across = heightMode == Content ? Unbounded : height - paddingOf(Axis::Y);
        if (isTurned())
            std::swap(along, across);
        if (isOneLine())
            along = static_cast<float>(engine().metrics.width);
        TextLayout layout = textLayout(along, across);
        layout.text = measuredText();
        layout.wordWrap = breaksLines();
        Font* const measuring = font();
        setContentSize(measuring != nullptr ? measuring->measureText(layout) : TextSize{0, 0});
        limitContent();
    }
    placeTextBox();
}

void TextButton::setContentSize(TextSize text)
{
    if (!text.isValid()) {
        // The text has no layout, so the sides stay unknown.
        width = widthMode == Content ? -1 : width;
        height = heightMode == Content ? -1 : height;
        return;
    }
    if (isTurned())
        std::swap(text.width, text.height);
    const auto room = [this](Axis axis) {
        return parent != nullptr ? std::max(parent->extent(axis), 0.0F) : 0.0F;
    };
    if (widthMode == Content)
        width = std::max(text.width + paddingOf(Axis::X), resolveEdge(minWidth, room(Axis::X)));
    if (heightMode == Content)
        height = std::max(text.height + paddingOf(Axis::Y), resolveEdge(minHeight, room(Axis::Y)));
}

void TextButton::placeTextBox()
{
    const float roomX = width - paddingOf(Axis::X);
    const float roomY = height - paddingOf(Axis::Y);
    const float own = isTurned() ? roomY : roomX;
    textBox_.width = isOneLine() ? static_cast<float>(engine().metrics.width) : own;
    textBox_.height = isTurned() ? roomX : roomY;
    // The box of one long line sticks out where the text that is aligned in it does.
    const float sticksOut = (textBox_.width - own) * (0.5F - shareBefore(textAlignment));
    const Point shift = turned({sticksOut, 0}, rotation);
    textBox_.left =
        padding.start(Axis::X, std::max(width, 0.0F)) + shift.x + (roomX - textBox_.width) / 2;
    textBox_.top =
        padding.start(Axis::Y, std::max(height, 0.0F)) + shift.y + (roomY - textBox_.height) / 2;
}

TextLayout TextButton::boxLayout() const
{
    TextLayout layout = textLayout(textBox_.width, textBox_.height);
    layout.wordWrap = breaksLines();
    // A side that is sized by the text has room for all of it.
    layout.maxLines = isMeasured() ? 0 : maxLines;
    return layout;
}

void TextButton::fillTextBox(const TextBox& part) const
{
    const Point fromCenter = turned({part.left + (part.width - textBox_.width) / 2,
                                     part.top + (part.height - textBox_.height) / 2},
                                    rotation);
    const float filledWidth = isTurned() ? part.height : part.width;
    const float filledHeight = isTurned() ? part.width : part.height;
    const float centerX = x + textBox_.left + textBox_.width / 2 + fromCenter.x;
    const float centerY = y + textBox_.top + textBox_.height / 2 + fromCenter.y;
    fillRect(std::floor(centerX - filledWidth / 2), std::floor(centerY - filledHeight / 2),
             filledWidth, filledHeight);
}

void TextButton::drawContent()
{
    const Point corner{x + textBox_.left, y + textBox_.top};
    if (rotation == 0) {
        drawText(boxLayout(), corner);
        return;
    }
    const TextureRef* const picture = requirePicture(boxLayout(), corner);
    if (picture == nullptr)
        return;
    // The picture's own size, as the font has rounded the box up to whole pixels.
    const auto pictureWidth = static_cast<float>(picture->width);
    const auto pictureHeight = static_cast<float>(picture->height);
    const float drawnWidth = isTurned() ? pictureHeight : pictureWidth;
    const float drawnHeight = isTurned() ? pictureWidth : pictureHeight;
    const float left = corner.x + (textBox_.width - drawnWidth) / 2;
    const float top = corner.y + (textBox_.height - drawnHeight) / 2;
    std::array<TexturePoint, 4> corners = TextureCorners;
    // The left upper corner shows what was the left lower one, and so on.
    std::rotate(corners.begin(), corners.begin() + rotation, corners.end());
    setColor(color, drawAlpha);
    texturedQuad(picture, std::floor(left), std::floor(top), drawnWidth, drawnHeight,
                 corners.data());
}

} // namespace nui
