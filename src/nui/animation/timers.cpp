#include "nui/animation/timers.h"

#include "nui/events/dispatch.h"

#include <algorithm>

namespace nui {

void TimerList::add(std::uint64_t delay, const WidgetPtr& widget, bool restart)
{
    if (!widget)
        return;
    const std::lock_guard guard(lock_);
    const std::uint64_t due = clock_() + delay;
    // Compared without locking the targets: on another thread, the last share of a widget must
    // not be let go.
    const auto found = std::ranges::find_if(timers_, [&widget](const Timer& timer) {
        return !timer.target.owner_before(widget) && !widget.owner_before(timer.target);
    });
    if (found == timers_.end()) {
        auto event = std::make_shared<TimerEvent>();
        event->due = due;
        timers_.push_back({std::move(event), widget});
    } else if (restart) {
        found->event->due = due;
    }
}

void TimerList::dispatchDue(std::uint64_t now)
{
    for (const Timer& timer : takeDue(now)) {
        if (const WidgetPtr target = timer.target.lock())
            dispatch(*target, *timer.event, Phase::AtTarget);
    }
}

std::vector<TimerList::Timer> TimerList::takeDue(std::uint64_t now)
{
    const std::unique_lock guard(lock_, std::try_to_lock);
    if (!guard)
        return {};
    std::vector<Timer> due;
    std::erase_if(timers_, [&due, now](const Timer& timer) {
        const bool isDue = timer.event->due <= now;
        if (isDue)
            due.push_back(timer);
        return isDue;
    });
    return due;
}

} // namespace nui
