#pragma once

#include <vector>

#include "platform/win32.h"

namespace quillo {

/// While it is alive, the top-level windows of this thread that could take input when it was made take none. Windows
/// made later do. Scopes can nest: each enables only what it has disabled itself.
class DisabledWindows {
  public:
    /// `spared` keeps its input; it may be null. The owner of a dialog of the system is spared, because such a dialog
    /// disables its owner itself and enables it again before it goes: otherwise another program would come forward.
    explicit DisabledWindows(HWND spared = nullptr);
    DisabledWindows(const DisabledWindows&) = delete;
    DisabledWindows& operator=(const DisabledWindows&) = delete;
    ~DisabledWindows();

  private:
    static BOOL CALLBACK Disable(HWND window, LPARAM self) noexcept;

    HWND spared_;
    std::vector<HWND> windows_;
};

}  // namespace quillo
