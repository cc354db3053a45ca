#include "nui/widgets/default_tool_tip.h"

namespace nui {

namespace {

/// Room for the pointer, when the tool tip must move above it.
constexpr float PointerRoom = 48;

} // namespace

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
