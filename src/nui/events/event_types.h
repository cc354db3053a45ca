#pragma once

#include <cstdint>

namespace nui {

/// What an event is: a tag of four letters, the first in the lowest byte, or a small number.
using EventType = std::uint32_t;

constexpr EventType eventTag(char first, char second, char third, char fourth)
{
    return static_cast<EventType>(first) | (static_cast<EventType>(second) << 8U) |
           (static_cast<EventType>(third) << 16U) | (static_cast<EventType>(fourth) << 24U);
}

/// Types of plain events, which have no class of their own.
namespace plain_event {
constexpr EventType Activate = 0;
constexpr EventType ScrolledByUser = 1;
constexpr EventType ScrollChanged = 2;
constexpr EventType WindowOpening = 4;
} // namespace plain_event

/// Types of TouchEvent. The tags step through the first letter; the drag family is listened for
/// and never sent, as drags are the business of a driver that does not exist on Windows.
namespace touch {
constexpr EventType Press = eventTag('T', 'O', 'U', 'C');
constexpr EventType Move = Press + 1;
constexpr EventType EnterSelf = Press + 2;
constexpr EventType LeaveSelf = Press + 3;
constexpr EventType Enter = Press + 4; ///< also sent to ancestors
constexpr EventType Leave = Press + 5; ///< also sent to ancestors
constexpr EventType Release = Press + 6;
constexpr EventType DragStart = Press + 7;
constexpr EventType DragMove = Press + 8;
constexpr EventType DragEnd = Press + 9;
constexpr EventType DoubleClick = Press + 11;
constexpr EventType Click = Press + 15;
constexpr EventType Wheel = Press + 16;
} // namespace touch

namespace keyboard {
constexpr EventType FocusGained = eventTag('K', 'E', 'Y', 'B');
constexpr EventType FocusLost = eventTag('L', 'E', 'Y', 'B');
constexpr EventType Down = eventTag('M', 'E', 'Y', 'B');
constexpr EventType Up = eventTag('N', 'E', 'Y', 'B');
} // namespace keyboard

namespace text {
constexpr EventType Changed = eventTag('T', 'E', 'X', 'T'); ///< a field has been edited; bubbles
constexpr EventType Committed = Changed + 1;
constexpr EventType Composing = Changed + 2;
constexpr EventType Pasting = Changed + 3; ///< a field is about to take the clipboard's text
} // namespace text

namespace window {
constexpr EventType Resizing = eventTag('X', 'I', 'N', 'D');
constexpr EventType Resized = eventTag('Y', 'I', 'N', 'D');
constexpr EventType Closing = eventTag('Z', 'I', 'N', 'D');
} // namespace window

constexpr EventType TimerDue = eventTag('T', 'I', 'M', 'E');
constexpr EventType FilesDropped = eventTag('F', 'I', 'L', 'D');

namespace tween_event {
constexpr EventType Started = eventTag('T', 'W', 'E', 'E');
constexpr EventType Ended = eventTag('U', 'W', 'E', 'E');
} // namespace tween_event

} // namespace nui
