#include "platform/message_loop.h"

#include <utility>

namespace quillo {

int MessageLoop::Run() {
    MSG message{};
    for (;;) {
        if (!idle_.empty() && PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) == 0) {
            RunIdleActions();
            continue;  // an action may have added another one, and no message will wake the loop
        }
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) return static_cast<int>(message.wParam);
        if (got < 0) return 1;
        Dispatch(message);
        if (afterEach_) afterEach_();
        if (exitCode_) {
            // A menu's loop may have removed the system's quit message.
            PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
            return *exitCode_;
        }
    }
}

void MessageLoop::Quit(int exitCode) {
    exitCode_ = exitCode;
    PostQuitMessage(exitCode);
}

void MessageLoop::RunPending() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));  // left for Run
        Dispatch(message);
    }
}

void MessageLoop::Dispatch(MSG& message) {
    if (IsDialogKey(message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

bool MessageLoop::IsDialogKey(MSG& message) const {
    for (const Dialog dialog : dialogs_) {  // a copy: a key may end the dialog, and with it the entry
        if (message.hwnd != dialog.window && IsChild(dialog.window, message.hwnd) == 0) continue;
        if (message.message == WM_KEYDOWN && dialog.keys->OnKeyDown(message.wParam)) return true;
        return IsDialogMessageW(dialog.window, &message) != 0;
    }
    return false;
}

void MessageLoop::RemoveDialog(HWND dialog) {
    std::erase_if(dialogs_, [dialog](const Dialog& each) { return each.window == dialog; });
}

void MessageLoop::RunIdleActions() {
    const auto actions = std::exchange(idle_, {});
    for (const auto& action : actions) action();
}

}  // namespace quillo
