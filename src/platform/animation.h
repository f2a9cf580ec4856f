#pragma once

namespace quillo {

/// Whether the user has allowed animation for all programs.
[[nodiscard]] bool SystemAnimates();
/// Whether the screen is shown on another machine.
[[nodiscard]] bool IsRemoteSession();

/// Sets the system's timer resolution to a millisecond for a scope: a short sleep would last two or three times as
/// long.
class FineClockScope {
  public:
    FineClockScope();
    FineClockScope(const FineClockScope&) = delete;
    FineClockScope& operator=(const FineClockScope&) = delete;
    ~FineClockScope();

  private:
    bool begun_;
};

}  // namespace quillo
