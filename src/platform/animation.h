#pragma once

namespace quillo {

/// Whether the user wants windows to move at all, as set for every program.
[[nodiscard]] bool SystemAnimates();
/// Whether the screen is shown on another machine.
[[nodiscard]] bool IsRemoteSession();

/// For its length the system's clock ticks every millisecond: a short sleep would last two or three times as long.
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
