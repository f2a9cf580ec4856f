#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/window.h"

namespace quillo {

/// The hidden window through which a later start of the program passes its command line to this one. The names of its
/// window classes are a protocol: any sender that knows them can use it.
class NotifyWindow : public Window {
  public:
    ~NotifyWindow() override { Destroy(); }

    /// False on failure.
    bool Load();
    void Unload() { Destroy(); }

    /// A command line has arrived. The handler must not unload this window.
    std::function<void(std::u16string_view)> onCommand;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void OnTextChanged();

    HWND messageBox_ = nullptr;
};

/// Passes a command line to the running instance; false if none is found within `patience` milliseconds. Returns when
/// the other instance has handled it, however long that takes.
bool SendToRunningInstance(std::u16string_view commandLine, DWORD patience);

}  // namespace quillo
