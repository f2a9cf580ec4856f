#include "mainmenu/notify_window.h"

#include "platform/notify_channel.h"
#include "platform/wide.h"

namespace quillo {
namespace {

constexpr int kMessageBoxId = 1;

/// The text box is the system's own control under another class name.
bool RegisterTextBoxClass() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    if (GetClassInfoExW(nullptr, L"EDIT", &windowClass) == 0) return false;
    windowClass.hInstance = ThisModule();
    windowClass.lpszClassName = kNotifyBoxClass;
    windowClass.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
    return RegisterClassExW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

}  // namespace

bool NotifyWindow::Load() {
    WindowPlan plan;
    plan.className = kNotifyFormClass;
    plan.title = kNotifyTitle;
    plan.style = WS_POPUP;
    if (!RegisterTextBoxClass() || !Create(plan)) return false;
    const UINT_PTR id = kMessageBoxId;
    messageBox_ = CreateWindowExW(0, kNotifyBoxClass, L"", WS_CHILD | ES_AUTOHSCROLL, 0, 0, 0, 0, Handle(),
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
    // The other instance may still be starting: it gets time to open its channel.
    HWND box = AwaitNotifyBox(patience);
    if (box == nullptr) return false;
    SendToNotifyBox(box, Wide(std::u16string(commandLine)));
    return true;
}

}  // namespace quillo
