#pragma once

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "platform/win32.h"

namespace quillo {

/// A dialog as the message loop sees it.
class DialogKeys {
  public:
    virtual ~DialogKeys() = default;
    /// A key press, before the keys of dialogs are handled; true if it needs no further handling. The dialog may end
    /// meanwhile.
    virtual bool OnKeyDown(WPARAM key) = 0;
};

/// The program's one message loop, and the work to do between two messages.
class MessageLoop {
  public:
    /// Runs until Quit; returns the exit code.
    int Run();
    /// Ends Run after the current message, and the modal loops in between with theirs.
    void Quit(int exitCode);
    /// Dispatches the waiting messages in the middle of a handler: any object of the caller may be destroyed
    /// afterwards.
    void RunPending();

    /// While a window is registered here, the keys of dialogs (Tab, Enter, Esc, the arrows) work among its controls.
    /// `keys` is borrowed until RemoveDialog.
    void AddDialog(HWND dialog, DialogKeys& keys) { dialogs_.push_back({dialog, &keys}); }
    void RemoveDialog(HWND dialog);

    /// `action` runs once, when no message is waiting: for work that start-up must not wait for.
    void RunWhenIdle(std::function<void()> action) { idle_.push_back(std::move(action)); }
    /// `action` runs after every message that the loop has dispatched, when no handler of a window is running.
    void RunAfterEach(std::function<void()> action) { afterEach_ = std::move(action); }

  private:
    void Dispatch(MSG& message);
    [[nodiscard]] bool IsDialogKey(MSG& message) const;
    void RunIdleActions();

    std::optional<int> exitCode_;
    struct Dialog {
        HWND window;
        DialogKeys* keys;
    };
    std::vector<Dialog> dialogs_;
    std::vector<std::function<void()>> idle_;
    std::function<void()> afterEach_;
};

}  // namespace quillo
