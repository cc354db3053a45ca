#include "misc/utf8.h"
#include "nui/draw/drawing.h"
#include "nui/engine/engine.h"
#include "nui/widgets/text_field.h"

#include <SDL_keyboard.h>
#include <SDL_rect.h>

#include <algorithm>

// How a field shows its text, its caret and its selection.

namespace nui {

namespace {

constexpr float BlinkSeconds = 0.4F;
constexpr float BlinkDelay = 0.5F;
constexpr std::uint8_t Solid = 255;

// The caret is kept that far from the sides of a field that scrolls.
constexpr float ViewMargin = 3;
constexpr float WideViewMargin = 9;

/// Bytes of the first `count` characters.
std::size_t bytesOf(std::string_view text, std::int32_t count)
{
    std::size_t bytes = 0;
    for (; count > 0 && bytes < text.size(); --count)
        nrd::misc::next_code_point(text, bytes);
    return bytes;
}

} // namespace

void TextField::drawContent()
{
    const Rect outerClip = getClip();
    intersectClip(pixelRect(x, y, width, height));
    drawField();
    setClip(outerClip);
}

void TextField::drawField()
{
    if (scrolls() && focused_)
        drawScrolled();
    else if (getText().empty() && !rules_.hintText.empty())
        drawHint();
    else if (focused_)
        drawMarked(boxLayout(), {x + textBox().left, y + textBox().top}, color);
    else
        TextButton::drawContent();
    if (focused_ && caretMoved_)
        sendInputRect();
}

void TextField::drawScrolled()
{
    TextLayout line = boxLayout();
    // A line feed is a blank there, as for who looks up a place.
    lineText_ = line.text;
    std::ranges::replace(lineText_, '\n', ' ');
    line.text = lineText_;
    const float start = textBox().left + scrollX_;
    line.width = std::max(start, textBox().width);
    // Where the look-up of a place on one line has it.
    line.alignment = TextAlignment::Left;
    line.wordWrap = false;
    line.maxLines = 0;
    drawMarked(line, {x + start, y + textBox().top}, color);
}

void TextField::drawHint()
{
    TextLayout hint = boxLayout();
    hint.text = rules_.hintText;
    drawMarked(hint, {x + textBox().left, y + textBox().top}, rules_.hintColor);
}

void TextField::drawMarked(TextLayout layout, Point corner, Color textColor)
{
    Font* const drawing = font();
    if (drawing == nullptr)
        return;
    TextMarks marks;
    if (focused_) {
        marks.caret = toShown(caret_);
        marks.anchor = toShown(anchor_);
        if (caret_ == anchor_ || composing_)
            marks.caretColor = fadedBy(withAlpha(rules_.caretColor, blinkAlpha_), drawAlpha);
        marks.selectionColor = fadedBy(rules_.selectionColor, drawAlpha);
    }
    drawing->draw(layout, corner, fadedBy(textColor, drawAlpha), &marks, nullptr);
    if (!focused_)
        return;
    caretX_ = corner.x + marks.caretX - x - textBox().left;
    caretY_ = marks.caretY;
}

/// Tells input methods where the text is.
void TextField::sendInputRect()
{
    caretMoved_ = false;
    const Rect own = pixelRect(x, y, width, height);
    const SDL_Rect area{own.x, own.y, own.width, own.height};
    SDL_SetTextInputRect(&area);
}

void TextField::place()
{
    followCaret();
}

/// Moves the text of a field that scrolls so that the caret can be seen.
void TextField::followCaret()
{
    Font* const measuring = font();
    if (!scrolls() || measuring == nullptr || !(width > 0))
        return;
    const std::string shown(shownText());
    const float offset = measuring->xAtIndex(shown, fontSize, toShown(caret_));
    const float caretAt = scrollX_ + offset + padding.start(Axis::X, width);
    if (caretAt < ViewMargin)
        scrollX_ += ViewMargin - caretAt;
    else if (measuring->getTextWidth(shown, fontSize) < width + scrollX_)
        scrollX_ = 0;
    else if (caretAt > width - ViewMargin)
        scrollX_ -= caretAt - (width - ViewMargin);
    else if (caretAt < width - WideViewMargin && scrollX_ + ViewMargin < 0)
        scrollX_ -= caretAt - (width - WideViewMargin);
    scrollX_ = std::min(scrollX_, 0.0F);
}

void TextField::restartBlink()
{
    stopBlink();
    if (!focused_)
        return;
    blinkAlpha_ = Solid;
    blink_ = createTween(engine().tweens, BlinkSeconds,
                         {tween_item::pingPong(), tween_item::delay(BlinkDelay),
                          tween_item::value(&blinkAlpha_, std::uint8_t{0})});
}

void TextField::stopBlink()
{
    engine().tweens.kill(blink_);
    blink_.reset();
}

std::int32_t TextField::toShown(std::int32_t index) const
{
    // The stars of a password are as many as its bytes.
    return displayText().empty() ? index : static_cast<std::int32_t>(bytesOf(getText(), index));
}

std::int32_t TextField::fromShown(std::int32_t index) const
{
    if (index < 0)
        return index;
    const std::string& text = getText();
    if (displayText().empty())
        return std::min(index, static_cast<std::int32_t>(nrd::misc::count_code_points(text)));
    std::int32_t character = 0;
    for (std::size_t at = 0; at < text.size() && at < static_cast<std::size_t>(index); ++character)
        nrd::misc::next_code_point(text, at);
    return character;
}

} // namespace nui
