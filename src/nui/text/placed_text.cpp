#include "nui/text/placed_text.h"

#include "nui/draw/drawing.h"

#include <algorithm>
#include <cmath>

namespace nui {

namespace {

/// From dark, 0, to bright, 255.
std::int32_t brightness(Color color)
{
    const auto part = [color](unsigned shift) {
        return static_cast<std::int32_t>(color >> shift & 0xFFU);
    };
    return (part(0) * 3 + part(8) * 6 + part(16)) / 10;
}

/// The text's own colour on a selection that it can be read on, else black or white.
Color readableOn(Color background, Color text)
{
    constexpr std::int32_t EnoughContrast = 100;
    constexpr std::int32_t Dark = 128;
    const std::int32_t below = brightness(background);
    if (std::abs(below - brightness(text)) >= EnoughContrast)
        return text;
    return withAlpha(below < Dark ? OpaqueWhite : OpaqueBlack, alphaOf(text));
}

void fill(float x, float y, float width, float height, Color color)
{
    blend();
    setColor(color);
    fillRect(x, y, width, height);
}

} // namespace

PlacedText::PlacedText(FtglFace& face, const TextLines& lines, const TextLayout& layout)
    : face_(face), lines_(lines), layout_(layout), lineHeight_(face.lineHeight()),
      ascender_(face.metrics().heightAboveBase())
{
    const float free = layout.height - lineHeight_ * static_cast<float>(lines.lines.size());
    if (layout.verticalAlignment == VerticalTextAlignment::Middle)
        top_ = std::floor(free / 2);
    else if (layout.verticalAlignment == VerticalTextAlignment::Bottom)
        top_ = std::floor(free);
}

const TextLines::Character& PlacedText::characterAt(std::int32_t index) const
{
    return lines_.characters[static_cast<std::size_t>(index)];
}

float PlacedText::leftOf(const TextLines::Line& line) const
{
    const float free = layout_.width - line.width;
    if (layout_.alignment == TextAlignment::Center)
        return std::floor(free / 2);
    return layout_.alignment == TextAlignment::Right ? std::floor(free) : 0;
}

float PlacedText::topOf(std::int32_t line) const
{
    return top_ + std::round(lineHeight_ * static_cast<float>(line));
}

float PlacedText::boxHeight() const
{
    return std::min(std::round(ascender_ + face_.metrics().depthBelowBase()), lineHeight_);
}

float PlacedText::xOf(std::int32_t index) const
{
    const TextLines::Character& character = characterAt(index);
    return leftOf(lines_.lines[static_cast<std::size_t>(character.line)]) + character.x;
}

std::int32_t PlacedText::indexAt(Point point) const
{
    const auto lastLine = static_cast<std::int32_t>(lines_.lines.size()) - 1;
    const float row = std::floor((point.y - top_) / lineHeight_);
    auto number = static_cast<std::int32_t>(std::clamp(row, 0.0F, static_cast<float>(lastLine)));
    // Of a box that is too narrow for its characters, some lines stay empty.
    while (number > 0 && lines_.lines[static_cast<std::size_t>(number)].first < 0)
        --number;
    const TextLines::Line& line = lines_.lines[static_cast<std::size_t>(number)];
    if (line.isEmpty())
        return std::max(line.first, 0);
    const std::int32_t last = number == lastLine ? lines_.length() : line.last;
    const float x = point.x - leftOf(line);
    std::int32_t nearest = line.first;
    for (std::int32_t index = line.first; index <= last; ++index) {
        if (std::abs(characterAt(index).x - x) <= std::abs(characterAt(nearest).x - x))
            nearest = index;
    }
    return nearest;
}

PlacedText::Range PlacedText::visibleLines(Point position) const
{
    // Glyphs may reach into the lines beside theirs.
    constexpr float Around = 2;
    const Rect area = visibleArea();
    const float top = position.y + top_;
    const auto count = static_cast<float>(lines_.lines.size());
    const auto lineAt = [&](std::int32_t y, float further) {
        const float line = std::floor((static_cast<float>(y) - top) / lineHeight_) + further;
        return static_cast<std::int32_t>(std::clamp(line, 0.0F, count));
    };
    return {lineAt(area.y, -Around), lineAt(area.y + area.height, Around + 1)};
}

PlacedText::Range PlacedText::visiblePart(Range characters, float left) const
{
    // Wider than any glyph, and than what sticks out of one.
    const float around = 4 * lineHeight_;
    const Rect area = visibleArea();
    const auto firstFrom = [&](std::int32_t first, float x) {
        const auto begin = lines_.characters.begin();
        const auto found =
            std::partition_point(begin + first, begin + std::max(first, characters.end),
                                 [x](const TextLines::Character& each) { return each.x < x; });
        return static_cast<std::int32_t>(found - begin);
    };
    const std::int32_t first =
        firstFrom(characters.first, static_cast<float>(area.x) - left - around);
    return {first, firstFrom(first, static_cast<float>(area.x + area.width) - left + around)};
}

void PlacedText::drawSelection(Point position, Range lines, Range selected, Color color) const
{
    for (std::int32_t number = lines.first; number < lines.end; ++number) {
        const TextLines::Line& line = lines_.lines[static_cast<std::size_t>(number)];
        if (selected.first > line.last || selected.end <= line.first || line.isEmpty())
            continue;
        const float left = leftOf(line);
        const float start = selected.first > line.first ? characterAt(selected.first).x : 0;
        const float end = selected.end > line.last ? line.end : characterAt(selected.end).x;
        fill(std::floor(position.x + left + start), position.y + topOf(number),
             std::round(end - start), boxHeight(), color);
    }
}

void PlacedText::drawLine(std::int32_t number, Point position, Range selected, Color color,
                          Color selectedColor) const
{
    const TextLines::Line& line = lines_.lines[static_cast<std::size_t>(number)];
    Range drawn = visiblePart({std::max(line.first, 0), line.last + 1}, position.x + leftOf(line));
    while (!drawn.isEmpty() && !characterAt(drawn.first).drawn)
        ++drawn.first;
    while (!drawn.isEmpty() && !characterAt(drawn.end - 1).drawn)
        --drawn.end;
    const Point origin{position.x + leftOf(line),
                       position.y + topOf(number) + std::round(ascender_)};
    const std::int32_t start =
        std::clamp(selected.first, drawn.first, std::max(drawn.first, drawn.end));
    const std::int32_t end = std::clamp(selected.end, start, std::max(start, drawn.end));
    const auto run = [&](Range range, Color runColor) {
        if (!range.isEmpty())
            face_.drawRun(lines_, range.first, range.end, origin, runColor);
    };
    run({drawn.first, start}, color);
    run({start, end}, selectedColor);
    run({end, drawn.end}, color);
}

void PlacedText::drawCaret(Point position, TextMarks& marks, std::int32_t caret) const
{
    constexpr std::int32_t SizeOfOnePixel = 16;
    const std::int32_t line = characterAt(caret).line;
    const float x = std::floor(xOf(caret));
    const std::int32_t width = 1 + face_.size() / SizeOfOnePixel;
    if (alphaOf(marks.caretColor) != 0)
        fill(position.x + x, position.y + topOf(line), static_cast<float>(width), boxHeight(),
             marks.caretColor);
    marks.caretX = x;
    // So far above the line that a point there belongs to the line before it.
    marks.caretY = topOf(line) + ascender_ - lineHeight_;
}

void PlacedText::draw(Point position, Color color, TextMarks* marks) const
{
    const Point corner{std::round(position.x), std::round(position.y)};
    const bool marked = marks != nullptr && marks->caret >= 0;
    const Range lines = visibleLines(corner);
    Range selected;
    std::int32_t caret = 0;
    if (marked) {
        caret = std::clamp(marks->caret, 0, lines_.length());
        const std::int32_t anchor =
            marks->anchor < 0 ? caret : std::min(marks->anchor, lines_.length());
        selected = {std::min(caret, anchor), std::max(caret, anchor)};
        if (!selected.isEmpty())
            drawSelection(corner, lines, selected, marks->selectionColor);
    }
    const Color selectedColor = marked ? readableOn(marks->selectionColor, color) : color;
    for (std::int32_t line = lines.first; line < lines.end; ++line)
        drawLine(line, corner, selected, color, selectedColor);
    if (marked)
        drawCaret(corner, *marks, caret);
}

} // namespace nui
