#include "platform/monitors.h"

#include "platform/dpi.h"
#include "platform/gdi_scope.h"

namespace quillo {
namespace {

BOOL CALLBACK AddMonitor(HMONITOR monitor, HDC, RECT*, LPARAM target) noexcept {
    auto& monitors = *reinterpret_cast<std::vector<Monitor>*>(target);
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoW(monitor, &info) == 0) return TRUE;
    const bool primary = (info.dwFlags & MONITORINFOF_PRIMARY) != 0;
    monitors.insert(primary ? monitors.begin() : monitors.end(),
                    Monitor{FromWin32(info.rcMonitor), FromWin32(info.rcWork), MonitorScale(monitor)});
    return TRUE;
}

}  // namespace

std::vector<Monitor> AskForMonitors() {
    std::vector<Monitor> monitors;
    EnumDisplayMonitors(nullptr, nullptr, &AddMonitor, reinterpret_cast<LPARAM>(&monitors));
    return monitors;
}

const std::vector<Monitor>& MonitorCache::All() {
    if (monitors_.empty()) monitors_ = ask_();
    return monitors_;
}

Scale MonitorCache::ScaleAt(Point point) {
    const std::vector<Monitor>& monitors = All();
    return monitors.empty() ? SystemScale() : monitors[NearestMonitor(monitors, point)].scale;
}

bool MonitorCache::IsChange(UINT message) {
    return message == WM_DISPLAYCHANGE || message == WM_SETTINGCHANGE || message == WM_DPICHANGED;
}

std::vector<Rect> WorkAreas() {
    return WorkAreasOf(AskForMonitors());
}

Rect WorkAreaOf(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, window != nullptr ? MONITOR_DEFAULTTONEAREST : MONITOR_DEFAULTTOPRIMARY),
                    &monitor);
    return FromWin32(monitor.rcWork);
}

}  // namespace quillo
