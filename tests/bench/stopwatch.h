#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <utility>
#include <vector>

namespace quillo::bench {

/// Keeps the compiler from removing a result that nothing else uses.
template <typename T>
inline void Keep(const T& value) {
    static const volatile void* kept = nullptr;
    kept = &value;
    static_cast<void>(kept);
}

/// Seconds per call of the action, measured over `calls` calls.
template <typename Action>
[[nodiscard]] double Measure(std::size_t calls, Action&& action) {
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < calls; ++i) action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / static_cast<double>(calls);
}

[[nodiscard]] inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// The medians of two actions in seconds per call; their runs alternate, so that both see the same load of the machine.
template <typename First, typename Second>
[[nodiscard]] std::pair<double, double> Compare(int runs, std::size_t calls, First&& first, Second&& second) {
    std::vector<double> a;
    std::vector<double> b;
    for (int run = 0; run < runs; ++run) {
        a.push_back(Measure(calls, first));
        b.push_back(Measure(calls, second));
    }
    return {Median(a), Median(b)};
}

}  // namespace quillo::bench
