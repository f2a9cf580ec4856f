#include "harness/tray.h"

#include "harness/eventually.h"
#include "harness/input.h"
#include "harness/quillo_process.h"
#include "harness/window_text.h"

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

/// Where the shell says that the icon is; not every shell answers.
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
        if (std::wstring text = WindowText(window); !text.empty()) return text;
    }
    return {};
}

bool IsToolTipStanding(const std::wstring& text) {
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
    constexpr std::chrono::milliseconds kForOneIcon{1000};  // a tool tip comes after half a second
    constexpr int kRounds = 5;
    for (int round = 0; round < kRounds; ++round) {
        for (const POINT place : PossiblePlaces(process)) {
            MoveMouse(POINT{place.x, place.y - 60});
            MoveMouse(place);
            if (Eventually([&] { return IsToolTipStanding(toolTip); }, kForOneIcon)) return place;
        }
    }
    return std::nullopt;
}

}  // namespace quillo::e2e
