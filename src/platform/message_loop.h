#pragma once

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "platform/win32.h"

namespace quillo {

/// The program's one message loop, and what is to be done between two messages.
class MessageLoop {
  public:
    /// Runs until Quit; the answer is the exit code.
    int Run();
    /// Ends Run after the message in hand, and the modal loops in between with theirs.
    void Quit(int exitCode);
    /// Dispatches what waits now, in the middle of a handler: whatever the caller works with may be gone afterwards.
    void RunPending();

    /// While a window stands here, the keys of dialogs (Tab, Enter, Esc, the arrows) work among its controls.
    void AddDialog(HWND dialog) { dialogs_.push_back(dialog); }
    void RemoveDialog(HWND dialog) { std::erase(dialogs_, dialog); }

    /// `action` runs once, when no message is waiting: for what start-up must not wait for.
    void RunWhenIdle(std::function<void()> action) { idle_.push_back(std::move(action)); }
    /// `action` runs after every message that the loop has dispatched; no handler of a window is running then.
    void RunAfterEach(std::function<void()> action) { afterEach_ = std::move(action); }

  private:
    void Dispatch(MSG& message);
    [[nodiscard]] bool IsDialogKey(MSG& message) const;
    void RunIdleActions();

    std::optional<int> exitCode_;
    std::vector<HWND> dialogs_;
    std::vector<std::function<void()>> idle_;
    std::function<void()> afterEach_;
};

}  // namespace quillo
