#include "harness/tray.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "controls/tessel_tray_lite.h"
#include "harness/eventually.h"
#include "harness/input.h"
#include "harness/quillo_process.h"
#include "harness/window_text.h"
#include "platform/unique_handle.h"

// After windows.h.
#include <shellapi.h>

namespace quillo::e2e {
namespace {

constexpr UINT kIconId = 1;

DWORD ProcessOf(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process;
}

POINT MiddleOf(const RECT& area) {
    return POINT{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

/// The place of the icon according to the shell; some shells do not answer.
std::optional<POINT> AskShell(HWND iconWindow) {
    using GetRect = HRESULT(WINAPI*)(const NOTIFYICONIDENTIFIER*, RECT*);
    const auto proc = GetProcAddress(GetModuleHandleW(L"shell32.dll"), "Shell_NotifyIconGetRect");
    const auto getRect = reinterpret_cast<GetRect>(reinterpret_cast<void*>(proc));
    NOTIFYICONIDENTIFIER icon{};
    icon.cbSize = sizeof icon;
    icon.hWnd = iconWindow;
    icon.uID = kIconId;
    RECT area{};
    if (getRect == nullptr || getRect(&icon, &area) != S_OK) return std::nullopt;
    return MiddleOf(area);
}

std::vector<POINT> PossiblePlaces(DWORD process) {
    std::vector<POINT> places;
    for (HWND window : TrayIconWindows(process)) {
        if (const auto place = AskShell(window)) places.push_back(*place);
    }
    RECT bar{};
    if (!places.empty() || GetWindowRect(FindWindowW(L"Shell_TrayWnd", nullptr), &bar) == 0) return places;
    // A bare task bar: its icons are squares as high as the bar, from the right end on.
    constexpr int kMostIcons = 8;
    const int side = bar.bottom - bar.top;
    for (int i = 0; i < kMostIcons; ++i) {
        places.push_back(POINT{bar.right - side / 2 - i * side, bar.bottom - side / 2});
    }
    return places;
}

BOOL CALLBACK FindToolTip(HWND window, LPARAM parameter) {
    auto& wanted = *reinterpret_cast<const std::wstring**>(parameter);
    if (ClassOf(window) != L"tooltips_class32" || IsWindowVisible(window) == 0) return TRUE;
    if (WindowText(window) != *wanted) return TRUE;
    wanted = nullptr;
    return FALSE;
}

/// The record that the program has sent to the shell for an icon, read from the program's own memory: the shell's state
/// cannot be seen from outside. The record is in the control, to which its window points.
std::optional<TrayRecord> RecordOf(HWND window, DWORD process) {
    const KernelHandle program(OpenProcess(PROCESS_VM_READ, FALSE, process));
    const auto control = GetWindowLongPtrW(window, GWLP_USERDATA);
    std::vector<unsigned char> bytes(sizeof(TesselTrayLite));
    if (!program || control == 0 ||
        ReadProcessMemory(program.Get(), reinterpret_cast<const void*>(control), bytes.data(), bytes.size(), nullptr) ==
            0) {
        return std::nullopt;
    }
    TrayRecord record{};
    for (std::size_t at = 0; at + sizeof record <= bytes.size(); at += alignof(TrayRecord)) {
        std::memcpy(&record, bytes.data() + at, sizeof record);
        if (record.size == sizeof record && record.window == ToTrayHandle(window)) return record;
    }
    return std::nullopt;
}

}  // namespace

std::vector<HWND> TrayIconWindows(DWORD process) {
    std::vector<HWND> windows;
    HWND window = nullptr;
    while ((window = FindWindowExW(HWND_MESSAGE, window, L"QuilloTrayIcon", nullptr)) != nullptr) {
        if (ProcessOf(window) == process) windows.push_back(window);
    }
    return windows;
}

std::wstring LastBalloon(DWORD process) {
    for (HWND window : TrayIconWindows(process)) {
        const auto record = RecordOf(window, process);
        if (!record || record->info[0] == '\0') continue;
        const std::string_view text(record->info);
        return {text.begin(), text.end()};
    }
    return {};
}

bool HasAskedForBalloon(DWORD process) {
    constexpr std::uint32_t kHidden = 10;  // the time-out with which a balloon is hidden
    const std::vector<HWND> windows = TrayIconWindows(process);
    return std::any_of(windows.begin(), windows.end(), [process](HWND window) {
        const auto record = RecordOf(window, process);
        return record && (record->info[0] != '\0' || record->timeoutOrVersion == kHidden);
    });
}

bool IsToolTipShown(const std::wstring& text) {
    const std::wstring* wanted = &text;
    EnumWindows(&FindToolTip, reinterpret_cast<LPARAM>(&wanted));
    return wanted == nullptr;
}

bool HasBareTaskBar() {
    const HWND bar = FindWindowW(L"Shell_TrayWnd", nullptr);
    return bar != nullptr && FindWindowExW(bar, nullptr, L"TrayNotifyWnd", nullptr) == nullptr;
}

bool IsTrayIconShowing(HWND iconWindow) {
    NOTIFYICONDATAW nothingToChange{};
    nothingToChange.cbSize = sizeof nothingToChange;
    nothingToChange.hWnd = iconWindow;
    nothingToChange.uID = kIconId;
    return Shell_NotifyIconW(NIM_MODIFY, &nothingToChange) != FALSE;
}

std::optional<POINT> FindTrayIcon(DWORD process, const std::wstring& toolTip) {
    constexpr std::chrono::milliseconds kForOneIcon{1000};  // a tool tip appears after half a second
    constexpr int kRounds = 5;
    for (int round = 0; round < kRounds; ++round) {
        for (const POINT place : PossiblePlaces(process)) {
            MoveMouse(POINT{place.x, place.y - 60});
            MoveMouse(place);
            if (Eventually([&] { return IsToolTipShown(toolTip); }, kForOneIcon)) return place;
        }
    }
    return std::nullopt;
}

}  // namespace quillo::e2e
