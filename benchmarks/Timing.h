#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

namespace CorvexBenchmark {

using Clock = std::chrono::steady_clock;

inline double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

inline double SecondsOf(const std::function<void()>& work)
{
    const auto start = Clock::now();
    work();
    return SecondsSince(start);
}

/// Of at least one value.
inline double MedianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace CorvexBenchmark
