#include "platform/monitors.h"

#include "platform/gdi_scope.h"

namespace quillo {
namespace {

BOOL CALLBACK AddMonitor(HMONITOR monitor, HDC, RECT*, LPARAM target) noexcept {
    auto& areas = *reinterpret_cast<std::vector<Rect>*>(target);
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoW(monitor, &info) == 0) return TRUE;
    const bool primary = (info.dwFlags & MONITORINFOF_PRIMARY) != 0;
    areas.insert(primary ? areas.begin() : areas.end(), FromWin32(info.rcWork));
    return TRUE;
}

}  // namespace

std::vector<Rect> WorkAreas() {
    std::vector<Rect> areas;
    EnumDisplayMonitors(nullptr, nullptr, &AddMonitor, reinterpret_cast<LPARAM>(&areas));
    return areas;
}

Rect WorkAreaOf(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, window != nullptr ? MONITOR_DEFAULTTONEAREST : MONITOR_DEFAULTTOPRIMARY),
                    &monitor);
    return FromWin32(monitor.rcWork);
}

Size ScreenSize() {
    return Size{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

Size DesktopSize() {
    return Size{GetSystemMetrics(SM_CXVIRTUALSCREEN), GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

}  // namespace quillo
