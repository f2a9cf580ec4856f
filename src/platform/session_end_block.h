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
    /// `window` is borrowed, and must be a top-level window of this thread. It may end before this object, and so may
    /// the owner of `calls`.
    SessionEndBlock(const SessionEndCalls& calls, HWND window, const wchar_t* reason)
        : allow_(calls.allow), window_(window) {
        calls.block(window_, reason);
    }
    SessionEndBlock(const SessionEndBlock&) = delete;
    SessionEndBlock& operator=(const SessionEndBlock&) = delete;
    ~SessionEndBlock() { allow_(window_); }

  private:
    std::function<void(HWND)> allow_;
    HWND window_;
};

}  // namespace quillo
