#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <utility>
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

/// The median of so many measurements, each of which gives a number.
template <class Measure> double median_of(std::size_t rounds, Measure measure)
{
    std::vector<double> values(rounds);
    std::generate(values.begin(), values.end(), measure);
    return median(std::move(values));
}

} // namespace bench
