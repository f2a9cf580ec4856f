#include "platform/dpi.h"

#include "platform/gdi_scope.h"
#include "platform/late_library.h"

namespace quillo {

Scale SystemScale() {
    static const Scale scale = [] {
        const WindowDcScope screen(nullptr);
        return Scale(GetDeviceCaps(screen.Dc(), LOGPIXELSX));
    }();
    return scale;
}

Scale WindowScale(HWND window) {
    static LateFunction<UINT WINAPI(HWND)> getDpiForWindow(L"user32.dll", "GetDpiForWindow");
    const UINT dpi = getDpiForWindow.Get() != nullptr ? getDpiForWindow.Get()(window) : 0;
    return dpi != 0 ? Scale(static_cast<int>(dpi)) : SystemScale();
}

Scale PointScale(POINT point) {
    static LateFunction<HRESULT WINAPI(HMONITOR, int, UINT*, UINT*)> getDpiForMonitor(L"shcore.dll",
                                                                                      "GetDpiForMonitor");
    constexpr int kEffectiveDpi = 0;
    UINT x = 0;
    UINT y = 0;
    if (getDpiForMonitor.Get() != nullptr &&
        SUCCEEDED(getDpiForMonitor.Get()(MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST), kEffectiveDpi, &x, &y))) {
        return Scale(static_cast<int>(x));
    }
    return SystemScale();
}

}  // namespace quillo
