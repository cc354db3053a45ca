#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace bench {

/// Seconds that the work takes.
template <class Work> double seconds(Work work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace bench
