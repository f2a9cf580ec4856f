#include "harness/window_text.h"

namespace quillo::e2e {
namespace {

constexpr UINT kAnswerMilliseconds = 20'000;

}  // namespace

std::wstring WindowText(HWND window) {
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_ABORTIFHUNG, kAnswerMilliseconds, &length);
    std::wstring text(length + 1, L'\0');
    DWORD_PTR copied = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_ABORTIFHUNG,
                        kAnswerMilliseconds, &copied);
    text.resize(copied);
    return text;
}

HWND KeyboardWindow() {
    HWND front = GetForegroundWindow();
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(front, nullptr);
    return front != nullptr && GetGUIThreadInfo(thread, &info) != 0 ? info.hwndFocus : nullptr;
}

}  // namespace quillo::e2e
