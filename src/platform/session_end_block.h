#pragma once

#include <functional>

#include "platform/win32.h"

namespace quillo {

/// How the system is told that the end of the session has to wait, and that it may go on.
struct SessionEndCalls {
    std::function<void(HWND, const wchar_t*)> block;
    std::function<void(HWND)> allow;
};

/// The system's own; a system that does not have them is not told.
[[nodiscard]] SessionEndCalls SystemSessionEndCalls();

/// While it lives, the system does not end the process for taking its time, and shows the user the reason.
class SessionEndBlock {
  public:
    /// `calls` is borrowed, and so is `window`, which must be a top-level window of this thread.
    SessionEndBlock(const SessionEndCalls& calls, HWND window, const wchar_t* reason) : calls_(calls), window_(window) {
        calls_.block(window_, reason);
    }
    SessionEndBlock(const SessionEndBlock&) = delete;
    SessionEndBlock& operator=(const SessionEndBlock&) = delete;
    ~SessionEndBlock() { calls_.allow(window_); }

  private:
    const SessionEndCalls& calls_;
    HWND window_;
};

}  // namespace quillo
