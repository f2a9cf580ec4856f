#pragma once

#include <string>

#include "platform/unique_handle.h"

namespace quillo {

/// Tells whether another process of the same user runs the program in this session. The system drops the mark with
/// its process, so that a crashed predecessor leaves nothing behind.
class SingleInstance {
  public:
    SingleInstance();

    [[nodiscard]] bool AnotherRuns() const { return anotherRuns_; }

  private:
    KernelHandle mutex_;
    bool anotherRuns_ = false;
};

}  // namespace quillo
