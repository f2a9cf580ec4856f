#include "platform/message_loop.h"

#include <utility>

#include "platform/win32.h"

namespace quillo {

int MessageLoop::Run() {
    MSG message{};
    for (;;) {
        if (!idle_.empty() && PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) == 0) {
            RunIdleActions();
            continue;  // an action may have asked for another one: no message need come to wake the loop
        }
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) return static_cast<int>(message.wParam);
        if (got < 0) return 1;
        TranslateMessage(&message);
        DispatchMessageW(&message);
        if (afterEach_) afterEach_();
    }
}

void MessageLoop::Quit(int exitCode) {
    PostQuitMessage(exitCode);
}

void MessageLoop::RunIdleActions() {
    const auto actions = std::exchange(idle_, {});
    for (const auto& action : actions) action();
}

}  // namespace quillo
