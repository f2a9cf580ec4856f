#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "platform/win32.h"

namespace quillo {

/// The total time that the program waits for files that other programs have open: a virus scanner, an indexer or a
/// backup reads a new file for a moment. One second in any ten seconds, however many files are concerned.
class Patience {
  public:
    using Sleeper = std::function<void(std::uint32_t milliseconds)>;

    Patience() : Patience([](std::uint32_t milliseconds) { Sleep(milliseconds); }) {}
    /// `sleep` is called between two attempts.
    explicit Patience(Sleeper sleep) : sleep_(std::move(sleep)) {}

    /// Sleeps for a moment; false if the time is used up.
    [[nodiscard]] bool Wait() {
        constexpr std::uint64_t kWindowMilliseconds = 10'000;
        constexpr std::uint32_t kMostMilliseconds = 1000;
        constexpr std::uint32_t kStepMilliseconds = 25;
        const std::uint64_t now = GetTickCount64();
        if (since_ == 0 || now - since_ > kWindowMilliseconds) {
            since_ = now;
            used_ = 0;
        }
        if (used_ >= kMostMilliseconds) return false;
        used_ += kStepMilliseconds;
        sleep_(kStepMilliseconds);
        return true;
    }

  private:
    Sleeper sleep_;
    std::uint64_t since_ = 0;  ///< the tick count at the first wait of this period; 0 before any
    std::uint32_t used_ = 0;   ///< milliseconds
};

}  // namespace quillo
