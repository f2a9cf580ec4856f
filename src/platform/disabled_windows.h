#pragma once

#include <vector>

#include "platform/win32.h"

namespace quillo {

/// While it is alive, the top-level windows of this thread that accepted input at its construction accept none. Windows
/// created later do. Scopes can nest: each enables only the windows that it has disabled itself.
class DisabledWindows {
  public:
    /// `spared` still accepts input; it may be null. Spare the owner of a system dialog: such a dialog disables its
    /// owner itself and enables it again before it ends; otherwise another program would come to the front.
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
