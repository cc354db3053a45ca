#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <unordered_map>
#include <vector>

namespace nrd::installer::model {

/// A call on every pass of the main loop. Stays with whoever added it, who removes it before it
/// goes.
struct periodic_listener {
    std::function<void(void* user)> callback;
    void* user = nullptr;
};

/// Sixteen bytes that name a timer.
struct timer_id {
    std::array<std::uint32_t, 4> words = {};

    bool operator==(const timer_id&) const = default;
};

/// FNV-1a over the words.
struct timer_id_hash {
    std::size_t operator()(const timer_id& id) const;
};

/// What the main loop runs after each frame. Main thread only.
class periodic {
public:
    using clock = std::chrono::steady_clock;

    /// Calls back every `milliseconds`, for the first time when they have passed. With `once` the
    /// timer goes after its first call.
    timer_id add_timer(std::function<void()> callback, std::int64_t milliseconds, bool once = false,
                       clock::time_point now = clock::now());
    /// The timer goes with its next call, and may stop itself. Nothing for an unknown id.
    void stop_timer(const timer_id& id);
    void add_listener(periodic_listener* listener) { listeners_.push_back(listener); }
    void remove_listener(const periodic_listener* listener);

    /// One pass: the timers that are due, in the order in which they were added, then every
    /// listener. An empty callback throws std::bad_function_call.
    void run(clock::time_point now = clock::now());

private:
    struct timer {
        timer_id id;
        std::function<void()> callback;
        std::int64_t period = 0; ///< milliseconds
        clock::time_point last_run;
        bool once = false;
        bool stopped = false;
    };

    std::list<timer> timers_;
    std::unordered_map<timer_id, std::list<timer>::iterator, timer_id_hash> timers_by_id_;
    std::vector<periodic_listener*> listeners_;
    std::uint32_t last_id_ = 0;
};

} // namespace nrd::installer::model
