#pragma once

#include <string>

#include "platform/unique_handle.h"

namespace quillo {

/// Detects whether another process of the same user runs the program in this session. The system deletes the mutex with
/// its process, so a crashed process leaves nothing behind.
class SingleInstance {
  public:
    SingleInstance();

    [[nodiscard]] bool AnotherRuns() const { return anotherRuns_; }

  private:
    KernelHandle mutex_;
    bool anotherRuns_ = false;
};

}  // namespace quillo
