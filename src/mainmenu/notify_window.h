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

    /// A command line has come. It must not unload this window before it returns.
    std::function<void(std::u16string_view)> onCommand;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void OnTextChanged();

    HWND messageBox_ = nullptr;
};

/// Hands a command line to the running instance; false when none is to be found before `patience` milliseconds have
/// passed. Returns when the other one has dealt with it, however long that takes.
bool SendToRunningInstance(std::u16string_view commandLine, DWORD patience);

}  // namespace quillo
