#pragma once

#include <cstdint>

namespace nui::test {

/// Milliseconds that pass only when a test says so; `now` is what the toolkit takes for a clock.
/// Each object begins anew at 1000.
class FrameClock {
public:
    FrameClock() { ticks = 1000; }

    static std::uint64_t now() { return ticks; }
    void advance(std::uint64_t milliseconds) { ticks += milliseconds; }

private:
    static inline std::uint64_t ticks = 0;
};

} // namespace nui::test
