#pragma once

#include "nui/events/widget_events.h"

#include <cstdint>

namespace nui {

class Engine;
class Screen;

/// SDL's mask of buttons as pointer_button bits: the side buttons count as their neighbours.
[[nodiscard]] std::uint32_t buttonBits(std::uint32_t state);

/// Turns what the pointer does into events for widgets: hit test, press, hover, capture and
/// click. Owned by the engine; for the loop's thread.
class PointerPath {
public:
    explicit PointerPath(Engine& engine) : engine_(engine) {}

    /// One thing that happened, in window pixels. Type 0 is a reason other than the pointer;
    /// `buttons` 0 asks SDL which are down. `clicks` is SDL's count of a button event.
    struct Input {
        EventType type = 0;
        std::int32_t x = 0;
        std::int32_t y = 0;
        std::uint32_t windowId = 0;
        float wheel = 0;
        std::uint32_t buttons = 0;
        std::uint32_t clicks = 0;
    };

    void handle(const Input& input);
    /// Forgets every widget of the tree, as it is about to go.
    void forgetTree(const Widget& root);
    /// Asks SDL whether a button is down; for steps whose events did not tell.
    void refreshButtons();
    /// Ends a press and a capture whose release will not be told.
    void letGo();

    [[nodiscard]] const WidgetPtr& pressed() const { return pressed_; }
    [[nodiscard]] const WidgetPtr& hover() const { return hover_; }
    [[nodiscard]] const WidgetPtr& captured() const { return captured_; }
    [[nodiscard]] bool isDown() const { return down_; }
    [[nodiscard]] std::int32_t x() const { return x_; }
    [[nodiscard]] std::int32_t y() const { return y_; }

private:
    void deliver(TouchEvent& event, const Input& input, Screen& screen);
    void press(const TouchEvent& event, Screen& screen, const WidgetPtr& deepest);
    void moveOver(const WidgetPtr& deepest, bool noPress);
    void release(const TouchEvent& event, std::uint32_t clicks, const WidgetPtr& deepest,
                 const WidgetPtr& oldCapture);
    static void sendClicks(const TouchEvent& event, std::uint32_t clicks, Widget& widget);
    void endPress();
    void finishCapture(TouchEvent& event);
    void moveHover(const TouchEvent& event, const WidgetPtr& deepest);
    static void leave(const TouchEvent& event, const WidgetPtr& from, const Widget* common);
    void enter(const TouchEvent& event, const WidgetPtr& to, const Widget* common);
    void setCaptured(WidgetPtr widget);

    Engine& engine_;
    WidgetPtr pressed_;
    WidgetPtr hover_;
    WidgetPtr captured_;
    std::int32_t x_ = 0;
    std::int32_t y_ = 0;
    bool down_ = false;
};

} // namespace nui
