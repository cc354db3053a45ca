#include "nui/widgets/default_tool_tip.h"

namespace nui {

namespace {

/// Room for the pointer, when the tool tip must move above it.
constexpr float PointerRoom = 48;
/// Between the text and the border.
constexpr float RoomBeside = 6;
constexpr float RoomAbove = 3;

constexpr Color Ink = 0xFF302820;
constexpr Color Paper = 0xFFE6FCFF;
constexpr Color Edge = 0xFF808080;

} // namespace

DefaultToolTip::DefaultToolTip()
{
    widthMode = Content;
    heightMode = Content;
    color = Ink;
    backgroundColor = Paper;
    topColor = rightColor = bottomColor = leftColor = Edge;
    textAlignment = TextAlignment::Center;
}

void DefaultToolTip::measure()
{
    TextLabel::measure();
    if (widthMode == Content)
        width += 2 * RoomBeside;
    if (heightMode == Content)
        height += 2 * RoomAbove;
}

void DefaultToolTip::place()
{
    TextLabel::place();
    if (parent == nullptr)
        return;
    const float right = parent->localX + parent->width;
    if (width > parent->width)
        localX = parent->localX;
    else if (localX + width > right)
        localX = right - width;
    if (localY + height > parent->localY + parent->height)
        localY -= height + PointerRoom;
}

} // namespace nui
