#include "platform/win_sound_device.h"

#include <string>

#include "platform/late_library.h"
#include "platform/wide.h"

namespace quillo {

WinSoundDevice::~WinSoundDevice() {
    if (commanded_) WinSoundDevice::SendCommand(u"close all");
}

int WinSoundDevice::SendCommand(std::u16string_view command) {
    static LateFunction<DWORD WINAPI(const wchar_t*, wchar_t*, UINT, HWND)> send(L"winmm.dll", "mciSendStringW");
    constexpr int kNoSystem = -1;
    if (send.Get() == nullptr) return kNoSystem;
    commanded_ = true;
    return static_cast<int>(send.Get()(Wide(std::u16string(command)), nullptr, 0, nullptr));
}

void WinSoundDevice::PlayWave(std::u16string_view path, unsigned flags) {
    static LateFunction<BOOL WINAPI(const wchar_t*, UINT)> play(L"winmm.dll", "sndPlaySoundW");
    if (play.Get() != nullptr) play.Get()(Wide(std::u16string(path)), flags);
}

}  // namespace quillo
