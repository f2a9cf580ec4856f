#pragma once

#include <chrono>
#include <thread>

namespace quillo::e2e {

/// How long the tests wait for an event that must occur. It takes milliseconds; the rest is for a busy machine.
inline constexpr std::chrono::seconds kPatience{20};

/// Polls until the condition holds. False if it does not within `patience`.
template <typename Condition>
[[nodiscard]] bool Eventually(Condition condition, std::chrono::milliseconds patience = kPatience) {
    constexpr std::chrono::milliseconds kBetweenLooks{10};
    const auto deadline = std::chrono::steady_clock::now() + patience;
    for (;;) {
        if (condition()) return true;
        if (std::chrono::steady_clock::now() >= deadline) return false;
        std::this_thread::sleep_for(kBetweenLooks);
    }
}

}  // namespace quillo::e2e
