#include "platform/win_user_notice.h"

#include <string>

#include "platform/disabled_windows.h"
#include "platform/late_library.h"
#include "platform/styled_controls.h"
#include "platform/wide.h"
#include "util/busy_flag.h"

namespace quillo {

HWND MessageBoxOwner() {
    HWND active = GetActiveWindow();
    if (active == nullptr || IsWindowVisible(active) == 0 || IsWindowEnabled(active) == 0) return nullptr;
    return active;
}

int WinUserNotice::Box(std::u16string_view text, UINT flags, const wchar_t* title) {
    const BusyFlag::Scope busy(dialogs_);
    if (onBox) onBox();
    HWND asker = MessageBoxOwner();
    const DisabledWindows others(asker);
    const StyledControls styled;
    return MessageBoxW(asker, Wide(std::u16string(text)), title, flags | kMessageBoxFlags);
}

void WinUserNotice::Fail(std::u16string_view text) {
    Box(text, MB_OK | MB_ICONSTOP);
}

void WinUserNotice::Inform(std::u16string_view text) {
    Box(text, MB_OK | MB_ICONINFORMATION);
}

void WinUserNotice::Warn(std::u16string_view text) {
    Box(text, MB_OK | MB_ICONEXCLAMATION);
}

void WinUserNotice::WarnOfChoice(std::u16string_view text) {
    Box(text, MB_OK | MB_ICONEXCLAMATION, L"Warning");
}

bool WinUserNotice::Ask(std::u16string_view text, Question question) {
    const UINT buttons = question == Question::YesNoDefaultNo ? MB_YESNO : MB_OKCANCEL;
    const int answer = Box(text, buttons | MB_DEFBUTTON2 | MB_ICONEXCLAMATION);
    return answer == IDYES || answer == IDOK;
}

void WinUserNotice::Balloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon) {
    if (onBalloon) onBalloon(title, text, icon);
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

}  // namespace quillo
