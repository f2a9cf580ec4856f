#include "platform/notify_channel.h"

namespace quillo {
namespace {

// Senders look for this class first.
constexpr wchar_t kOlderFormClass[] = L"ThunderFormDC";
constexpr wchar_t kOlderBoxClass[] = L"ThunderTextBox";

HWND FindNotifyBox() {
    HWND form = FindWindowW(kOlderFormClass, kNotifyTitle);
    if (form == nullptr) form = FindWindowW(kNotifyFormClass, kNotifyTitle);
    if (form == nullptr) return nullptr;
    HWND box = FindWindowExW(form, nullptr, kOlderBoxClass, nullptr);
    return box != nullptr ? box : FindWindowExW(form, nullptr, kNotifyBoxClass, nullptr);
}

}  // namespace

HWND AwaitNotifyBox(DWORD patience) {
    constexpr DWORD kBetweenLooks = 20;
    const ULONGLONG deadline = GetTickCount64() + patience;
    HWND box = FindNotifyBox();
    while (box == nullptr && GetTickCount64() < deadline) {
        Sleep(kBetweenLooks);
        box = FindNotifyBox();
    }
    return box;
}

void SendToNotifyBox(HWND box, const wchar_t* commandLine) {
    // The user has just started this process: its right to come to the front passes to the process that acts.
    DWORD process = 0;
    GetWindowThreadProcessId(box, &process);
    AllowSetForegroundWindow(process);
    // Without a limit: the other process may be busy for longer than the time after which the system treats a program
    // as hung, and the command would be lost.
    SendMessageW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(commandLine));
}

}  // namespace quillo
