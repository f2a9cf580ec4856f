#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/window.h"

namespace quillo {

/// The hidden window through which a later start of the program hands its command line to this one. The names of its
/// classes are a protocol: any sender that knows them is understood.
class NotifyWindow : public Window {
  public:
    ~NotifyWindow() override { Destroy(); }

    /// False on failure.
    bool Load();
    void Unload() { Destroy(); }
    /// Asks the system for word of the session's locking.
    void WatchSession();

    /// A command line has come. It must not unload this window before it returns.
    std::function<void(std::u16string_view)> onCommand;
    /// The session asks whether it may end: everything is to be on the disk before the answer.
    std::function<void()> onSessionEnding;
    /// The session is locked or the machine goes to sleep: what has changed is to be on the disk.
    std::function<void()> onGoingAway;
    /// The session ends: the process lives no longer than this call.
    std::function<void()> onSessionEnded;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void OnTextChanged();
    void OnGoingAway() const;

    HWND messageBox_ = nullptr;
};

/// Hands a command line to the running instance; false when none is to be found before `patience` milliseconds have
/// passed. Returns when the other one has dealt with it.
bool SendToRunningInstance(std::u16string_view commandLine, DWORD patience);

}  // namespace quillo
