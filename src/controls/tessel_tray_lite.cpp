#include "controls/tessel_tray_lite.h"

// After windows.h.
#include <shellapi.h>

#include <cstring>

namespace quillo {
namespace {

constexpr UINT kRetryMilliseconds = 1000;

static_assert(sizeof(TrayHandle) == sizeof(HWND));
static_assert(sizeof(TrayRecord) == NOTIFYICONDATAA_V2_SIZE);
static_assert(offsetof(TrayRecord, size) == offsetof(NOTIFYICONDATAA, cbSize));
static_assert(offsetof(TrayRecord, window) == offsetof(NOTIFYICONDATAA, hWnd));
static_assert(offsetof(TrayRecord, id) == offsetof(NOTIFYICONDATAA, uID));
static_assert(offsetof(TrayRecord, flags) == offsetof(NOTIFYICONDATAA, uFlags));
static_assert(offsetof(TrayRecord, callbackMessage) == offsetof(NOTIFYICONDATAA, uCallbackMessage));
static_assert(offsetof(TrayRecord, icon) == offsetof(NOTIFYICONDATAA, hIcon));
static_assert(offsetof(TrayRecord, tip) == offsetof(NOTIFYICONDATAA, szTip));
static_assert(offsetof(TrayRecord, state) == offsetof(NOTIFYICONDATAA, dwState));
static_assert(offsetof(TrayRecord, stateMask) == offsetof(NOTIFYICONDATAA, dwStateMask));
static_assert(offsetof(TrayRecord, info) == offsetof(NOTIFYICONDATAA, szInfo));
static_assert(offsetof(TrayRecord, timeoutOrVersion) == offsetof(NOTIFYICONDATAA, uTimeout));
static_assert(offsetof(TrayRecord, infoTitle) == offsetof(NOTIFYICONDATAA, szInfoTitle));
static_assert(offsetof(TrayRecord, infoFlags) == offsetof(NOTIFYICONDATAA, dwInfoFlags));
static_assert(kTrayFlags == (NIF_MESSAGE | NIF_ICON | NIF_TIP) && kTrayBalloonFlag == NIF_INFO);
static_assert(kTrayCallbackMessage == WM_MOUSEMOVE);

}  // namespace

void TesselTrayLite::ShowBalloon(std::u16string_view text, std::u16string_view title, DWORD iconType,
                                 int timeoutSeconds) {
    rules_.ShowBalloon(text, title, iconType, timeoutSeconds);
}

LRESULT TesselTrayLite::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case kTrayCallbackMessage:
            OnNotification(wParam, lParam);
            return 0;
        default:
            return Default(message, wParam, lParam);
    }
}

TrayHandle TesselTrayLite::CallbackWindow() {
    if (Handle() == nullptr) {
        WindowPlan plan;
        plan.className = L"QuilloTrayIcon";
        plan.parent = HWND_MESSAGE;
        Create(plan);
    }
    return ToTrayHandle(Handle());
}

bool TesselTrayLite::Notify(TrayCommand command, const TrayRecord& record) {
    if (record.window == 0) return false;
    // The system's type is longer in newer headers; the size in the record says which part is valid.
    NOTIFYICONDATAA data{};
    std::memcpy(&data, &record, sizeof record);
    return Shell_NotifyIconA(static_cast<DWORD>(command), &data) != FALSE;
}

void TesselTrayLite::EnableRetryTimer(bool enabled) {
    if (enabled == retryTimer_.IsRunning()) return;
    if (enabled) {
        retryTimer_.Start(kRetryMilliseconds);
    } else {
        retryTimer_.Stop();
    }
}

void TesselTrayLite::OnNotification(WPARAM wParam, LPARAM lParam) {
    // The shell may send instead of post, and then in the middle of our own call into the shell: a handler that
    // destroys a control must not run at that point.
    if (!rules_.Busy() && InSendMessageEx(nullptr) != ISMEX_NOSEND) {
        PostMessageW(Handle(), kTrayCallbackMessage, wParam, lParam);
        return;
    }
    // Newer shells put the icon's number into the upper half; older ones leave it 0.
    rules_.Receive(LOWORD(lParam), [this](TrayEvent event) { Raise(event); });
}

void TesselTrayLite::Raise(TrayEvent event) {
    lifetime_.RaiseLast(event == TrayEvent::Click        ? onClick
                        : event == TrayEvent::RightClick ? onRightClick
                        : event == TrayEvent::DblClick   ? onDblClick
                                                         : onBalloonClick);
}

}  // namespace quillo
