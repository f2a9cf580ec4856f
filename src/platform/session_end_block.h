#pragma once

#include <functional>

#include "platform/win32.h"

namespace quillo {

/// The calls that delay the end of the session and let it continue.
struct SessionEndCalls {
    std::function<void(HWND, const wchar_t*)> block;
    std::function<void(HWND)> allow;
};

/// The system's own calls; null on a system that lacks them.
[[nodiscard]] SessionEndCalls SystemSessionEndCalls();

/// While it lives, the system does not end the process for being slow, and shows the user the reason.
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
