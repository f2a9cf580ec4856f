#pragma once

#include <algorithm>
#include <chrono>
#include <thread>

namespace quillo::e2e {

/// How long the tests wait for an event that must occur. It takes milliseconds; the rest is for a busy machine.
inline constexpr std::chrono::seconds kPatience{20};

/// Polls until the condition holds. False if it does not within `patience`.
template <typename Condition>
[[nodiscard]] bool Eventually(Condition condition, std::chrono::milliseconds patience = kPatience) {
    // Each check costs processor time that other tests need: the longer the wait, the rarer the checks.
    constexpr std::chrono::nanoseconds kShortest = std::chrono::milliseconds(10);
    constexpr std::chrono::nanoseconds kLongest = std::chrono::milliseconds(100);
    constexpr int kLatest = 20;
    const auto began = std::chrono::steady_clock::now();
    for (;;) {
        if (condition()) return true;
        const std::chrono::nanoseconds waited = std::chrono::steady_clock::now() - began;
        if (waited >= patience) return false;
        std::this_thread::sleep_for(std::clamp(waited / kLatest, kShortest, kLongest));
    }
}

}  // namespace quillo::e2e
