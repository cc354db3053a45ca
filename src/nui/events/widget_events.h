#pragma once

#include "nui/events/event.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace nui {

class CTween;
class Widget;

using WidgetPtr = std::shared_ptr<Widget>;
using WidgetEvent = EventTemplate<Widget>;
using ListenerList = ListenerListOf<Widget>;

/// Pointer buttons that are down, as bits.
namespace pointer_button {
constexpr std::uint32_t Left = 1;
constexpr std::uint32_t Middle = 2;
constexpr std::uint32_t Right = 4;
} // namespace pointer_button

/// The pointer did something; types in `touch`. Positions are window pixels.
class TouchEvent : public WidgetEvent {
public:
    using WidgetEvent::WidgetEvent;

    /// Asks for all further pointer events until every button is up. The first one who asks
    /// gets it; called by a listener, for the widget that it listens on.
    void capture()
    {
        if (captureRequest == nullptr)
            captureRequest = target;
    }

    bool captured = false; ///< the capturing widget has had this event already
    std::uint32_t buttons = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
    float wheel = 0; ///< notches, positive away from the user
    Widget* captureRequest = nullptr;
};

/// Types in `keyboard`.
class KeyboardEvent : public WidgetEvent {
public:
    using WidgetEvent::WidgetEvent;

    std::int32_t key = 0;        ///< an SDL_Keycode; 0 with the focus events
    std::uint16_t modifiers = 0; ///< SDL_Keymod bits
    bool repeat = false;
};

/// Types in `text`. Start and length count characters and mean something while composing only.
class TextEvent : public WidgetEvent {
public:
    using WidgetEvent::WidgetEvent;

    std::string text; ///< UTF-8
    std::int32_t start = 0;
    std::int32_t length = 0;
};

/// TimerDue, for the target widget. See TimerList.
class TimerEvent : public WidgetEvent {
public:
    TimerEvent() : WidgetEvent(TimerDue) {}

    std::uint64_t due = 0; ///< in ticks of the run loop's clock, milliseconds
};

/// Types in `window`.
class WindowEvent : public WidgetEvent {
public:
    using WidgetEvent::WidgetEvent;
};

class FileDropEvent : public WidgetEvent {
public:
    FileDropEvent() : WidgetEvent(FilesDropped) {}

    std::vector<std::string> files; ///< UTF-8
    std::int32_t x = 0;
    std::int32_t y = 0;
};

/// plain_event::ScrolledByUser.
class ScrollEvent : public WidgetEvent {
public:
    enum class Axis : std::uint8_t { None = 0, Vertical = 1, Horizontal = 2 };

    explicit ScrollEvent(Axis scrolled = Axis::None)
        : WidgetEvent(plain_event::ScrolledByUser), axis(scrolled)
    {
    }

    Axis axis; ///< None when a drag moved it
};

/// Types in `tween_event`, sent to the widget that the tween is bound to.
class TweenEvent : public WidgetEvent {
public:
    enum class Kind : std::uint8_t { Started = 1, Looped = 3, Done = 5 };

    TweenEvent(EventType eventType, std::shared_ptr<CTween> sender, Kind eventKind)
        : WidgetEvent(eventType), tween(std::move(sender)), kind(eventKind)
    {
    }

    std::shared_ptr<CTween> tween;
    Kind kind;
};

} // namespace nui
