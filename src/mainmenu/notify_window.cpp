#include "mainmenu/notify_window.h"

#include "platform/wide.h"

namespace quillo {
namespace {

constexpr wchar_t kTitle[] = L"Quillo Notify";
constexpr wchar_t kFormClass[] = L"ThunderRT6FormDC";
constexpr wchar_t kTextBoxClass[] = L"ThunderRT6TextBox";
// What a sender looks for first.
constexpr wchar_t kOlderFormClass[] = L"ThunderFormDC";
constexpr wchar_t kOlderTextBoxClass[] = L"ThunderTextBox";

constexpr int kMessageBoxId = 1;

/// The text box is the system's own under another name.
bool RegisterTextBoxClass() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    if (GetClassInfoExW(nullptr, L"EDIT", &windowClass) == 0) return false;
    windowClass.hInstance = ThisModule();
    windowClass.lpszClassName = kTextBoxClass;
    windowClass.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
    return RegisterClassExW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

HWND FindChannel() {
    HWND form = FindWindowW(kOlderFormClass, kTitle);
    if (form == nullptr) form = FindWindowW(kFormClass, kTitle);
    if (form == nullptr) return nullptr;
    HWND box = FindWindowExW(form, nullptr, kOlderTextBoxClass, nullptr);
    return box != nullptr ? box : FindWindowExW(form, nullptr, kTextBoxClass, nullptr);
}

}  // namespace

bool NotifyWindow::Load() {
    WNDCLASSEXW windowClass{};
    windowClass.lpszClassName = kFormClass;
    WindowPlan plan;
    plan.title = kTitle;
    plan.style = WS_POPUP;
    if (!RegisterTextBoxClass() || !Create(windowClass, plan)) return false;
    const UINT_PTR id = kMessageBoxId;
    messageBox_ = CreateWindowExW(0, kTextBoxClass, L"", WS_CHILD | ES_AUTOHSCROLL, 0, 0, 0, 0, Handle(),
                                  reinterpret_cast<HMENU>(id), ThisModule(), nullptr);
    constexpr WPARAM kMostTheBoxHolds = 0;
    SendMessageW(messageBox_, EM_SETLIMITTEXT, kMostTheBoxHolds, 0);
    return messageBox_ != nullptr;
}

LRESULT NotifyWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) == kMessageBoxId && HIWORD(wParam) == EN_CHANGE) OnTextChanged();
            return 0;
        default:
            return Default(message, wParam, lParam);
    }
}

void NotifyWindow::OnTextChanged() {
    const int length = GetWindowTextLengthW(messageBox_);
    if (length <= 0) return;  // also the change that the last line makes
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(messageBox_, WideBuffer(text), length + 1)));
    if (onCommand) onCommand(text);
    SetWindowTextW(messageBox_, L"");
}

bool SendToRunningInstance(std::u16string_view commandLine, DWORD patience) {
    // The other instance may be starting still: it is given the time to open its channel.
    constexpr DWORD kBetweenLooks = 20;
    const ULONGLONG deadline = GetTickCount64() + patience;
    HWND box = FindChannel();
    while (box == nullptr && GetTickCount64() < deadline) {
        Sleep(kBetweenLooks);
        box = FindChannel();
    }
    if (box == nullptr) return false;
    // The user has just asked this process for something: the right to come to the front goes to the one that does it.
    DWORD process = 0;
    GetWindowThreadProcessId(box, &process);
    AllowSetForegroundWindow(process);
    // Waits as long as the other one works, which may be a question to the user; not for one that has hung.
    constexpr UINT kNoTimeout = 0x7FFFFFFF;
    SendMessageTimeoutW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(std::u16string(commandLine))),
                        SMTO_ABORTIFHUNG, kNoTimeout, nullptr);
    return true;
}

}  // namespace quillo
