#pragma once

#include "nui/events/widget_events.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace nui {

/// One-shot events for widgets at a tick of the run loop's clock. One timer for a widget at the
/// most. Timers may be added from any thread; the loop takes the due ones.
class TimerList {
public:
    using Clock = std::uint64_t (*)();

    explicit TimerList(Clock clock) : clock_(clock) {}

    /// Due `delay` milliseconds from now. If the widget has a timer already, that one is moved
    /// with `restart`, and kept as it is without. Blocks on the lock. A widget that dies before
    /// is dropped in silence.
    void add(std::uint64_t delay, const WidgetPtr& widget, bool restart);

    /// Dispatches what is due at `now`, after the lock is released. A lock that is taken puts it
    /// off to the next step.
    void dispatchDue(std::uint64_t now);

    void setClock(Clock clock) { clock_ = clock; }

private:
    struct Timer {
        std::shared_ptr<TimerEvent> event;
        std::weak_ptr<Widget> target;
    };

    [[nodiscard]] std::vector<Timer> takeDue(std::uint64_t now);

    Clock clock_;
    std::recursive_mutex lock_;
    std::vector<Timer> timers_;
};

} // namespace nui
