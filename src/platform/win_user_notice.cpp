#include "platform/win_user_notice.h"

#include "platform/late_library.h"
#include "platform/wide.h"
#include "resources/resource_ids.h"

// After windows.h.
#include <shellapi.h>

#include <algorithm>

namespace quillo {
namespace {

constexpr UINT kCallbackMessage = WM_APP;
constexpr UINT kBalloonMilliseconds = 15'000;

int Box(std::u16string_view text, UINT flags) {
    return MessageBoxW(nullptr, Wide(std::u16string(text)), L"Quillo", flags | MB_SETFOREGROUND | MB_TASKMODAL);
}

template <std::size_t kSize>
void CopyText(std::u16string_view text, wchar_t (&target)[kSize]) {
    const std::size_t length = std::min(text.size(), kSize - 1);
    std::copy_n(WideData(text), length, target);
    target[length] = L'\0';
}

NOTIFYICONDATAW IconRecord(HWND window) {
    NOTIFYICONDATAW record{};
    record.cbSize = sizeof record;
    record.hWnd = window;
    record.uID = 1;
    return record;
}

}  // namespace

void WinUserNotice::Fail(std::u16string_view text) {
    Box(text, MB_OK | MB_ICONSTOP);
}

void WinUserNotice::Inform(std::u16string_view text) {
    Box(text, MB_OK | MB_ICONINFORMATION);
}

void WinUserNotice::Warn(std::u16string_view text) {
    Box(text, MB_OK | MB_ICONEXCLAMATION);
}

bool WinUserNotice::Ask(std::u16string_view text, Question question) {
    const UINT buttons = question == Question::YesNoDefaultNo ? MB_YESNO : MB_OKCANCEL;
    const int answer = Box(text, buttons | MB_DEFBUTTON2 | MB_ICONEXCLAMATION);
    return answer == IDYES || answer == IDOK;
}

void WinUserNotice::Balloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon) {
    balloon_.Show(title, text, icon);
}

void WinUserNotice::Play(SystemSound sound) {
    static LateFunction<BOOL WINAPI(const wchar_t*, UINT)> playSound(L"winmm.dll", "sndPlaySoundW");
    if (playSound.Get() == nullptr) return;
    const wchar_t* name = sound == SystemSound::RestoreUp     ? L"RestoreUp"
                          : sound == SystemSound::RestoreDown ? L"RestoreDown"
                                                              : L"SystemAsterisk";
    constexpr UINT kAsync = 1;
    constexpr UINT kNoDefault = 2;
    playSound.Get()(name, kAsync | kNoDefault);
}

void WinUserNotice::BalloonWindow::Show(std::u16string_view title, std::u16string_view text, BalloonIcon icon) {
    if (Handle() == nullptr) {
        WNDCLASSEXW windowClass{};
        windowClass.lpszClassName = L"QuilloBalloon";
        WindowPlan plan;
        plan.parent = HWND_MESSAGE;
        if (!Create(windowClass, plan)) return;
    }
    Remove();
    NOTIFYICONDATAW record = IconRecord(Handle());
    record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP | NIF_INFO;
    record.uCallbackMessage = kCallbackMessage;
    record.hIcon =
        static_cast<HICON>(LoadImageW(ThisModule(), MAKEINTRESOURCEW(IDI_QUILLO), IMAGE_ICON,
                                      GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED));
    CopyText(u"Quillo", record.szTip);
    CopyText(title, record.szInfoTitle);
    CopyText(text, record.szInfo);
    record.dwInfoFlags = static_cast<DWORD>(icon);
    shown_ = Shell_NotifyIconW(NIM_ADD, &record) != 0;
    if (shown_) timer_.Start(kBalloonMilliseconds);
}

LRESULT WinUserNotice::BalloonWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case kCallbackMessage:
            if (lParam == NIN_BALLOONUSERCLICK || lParam == NIN_BALLOONTIMEOUT || lParam == WM_LBUTTONUP) Remove();
            return 0;
        case WM_DESTROY:
            Remove();
            return 0;
        default:
            return Default(message, wParam, lParam);
    }
}

void WinUserNotice::BalloonWindow::Remove() {
    timer_.Stop();
    if (!shown_) return;
    shown_ = false;
    NOTIFYICONDATAW record = IconRecord(Handle());
    Shell_NotifyIconW(NIM_DELETE, &record);
}

}  // namespace quillo
