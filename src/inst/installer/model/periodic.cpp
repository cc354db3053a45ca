#include "inst/installer/model/periodic.h"

#include <utility>

namespace nrd::installer::model {

std::size_t timer_id_hash::operator()(const timer_id& id) const
{
    std::uint32_t hash = 2166136261U;
    for (const std::uint32_t word : id.words) {
        hash = (hash ^ word) * 16777619U;
    }
    return hash;
}

timer_id periodic::add_timer(std::function<void()> callback, std::int64_t milliseconds, bool once,
                             clock::time_point now)
{
    const timer_id id{{++last_id_, 0, 0, 0}};
    timers_.push_back({id, std::move(callback), milliseconds, now, once, false});
    timers_by_id_.emplace(id, std::prev(timers_.end()));
    return id;
}

void periodic::stop_timer(const timer_id& id)
{
    const auto found = timers_by_id_.find(id);
    if (found != timers_by_id_.end()) {
        found->second->stopped = true;
    }
}

void periodic::remove_listener(const periodic_listener* listener)
{
    std::erase(listeners_, listener);
}

void periodic::run(clock::time_point now)
{
    std::vector<timer_id> ended;
    for (timer& each : timers_) {
        if (now - each.last_run < std::chrono::milliseconds(each.period)) {
            continue;
        }
        each.callback();
        each.last_run = now;
        if (each.once || each.stopped) {
            ended.push_back(each.id);
        }
    }
    for (const timer_id& id : ended) {
        const auto found = timers_by_id_.find(id);
        timers_.erase(found->second);
        timers_by_id_.erase(found);
    }
    // A listener may add others.
    for (std::size_t index = 0; index < listeners_.size(); ++index) {
        const periodic_listener& listener = *listeners_[index];
        listener.callback(listener.user);
    }
}

} // namespace nrd::installer::model
