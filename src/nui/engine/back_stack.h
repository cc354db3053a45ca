#pragma once

#include "nui/events/widget_events.h"

#include <cstdint>
#include <deque>
#include <memory>

namespace nui {

class Engine;
class Screen;

/// Where "back" leads: what screens showed before each change. Owned by the engine.
class BackStack {
public:
    explicit BackStack(Engine& engine) : engine_(engine) {}

    /// Before another screen is shown, a state id changes, or a modal child opens: each records
    /// what the current screen shows and then makes the change.
    void pushScreen(const std::shared_ptr<Screen>& next);
    void pushStateId(std::uint32_t next);
    void pushModalChild(const WidgetPtr& child, bool dim);
    /// Takes back the last change; false if there is none.
    bool goBack();
    /// Lets the widget go back: when it is activated (type 0), released or pressed.
    void attach(Widget& widget, EventType type);
    [[nodiscard]] bool empty() const { return records_.empty(); }

private:
    struct Record {
        std::shared_ptr<Screen> screen;
        std::uint32_t stateId = 0;
        WidgetPtr modalChild;
        bool dimmed = false; ///< the layer under the modal child
    };

    void push();
    static void onBack(WidgetEvent& event);

    Engine& engine_;
    std::deque<Record> records_;
};

} // namespace nui
