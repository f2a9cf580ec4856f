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

Size WindowSizeFor(Size client, DWORD style, DWORD exStyle, const Scale& scale) {
    static LateFunction<BOOL WINAPI(RECT*, DWORD, BOOL, DWORD, UINT)> adjustForDpi(L"user32.dll",
                                                                                   "AdjustWindowRectExForDpi");
    RECT frame{0, 0, client.width, client.height};
    if (adjustForDpi.Get() != nullptr) {
        adjustForDpi.Get()(&frame, style, FALSE, exStyle, static_cast<UINT>(scale.Dpi()));
    } else {
        AdjustWindowRectEx(&frame, style, FALSE, exStyle);
    }
    return Size{frame.right - frame.left, frame.bottom - frame.top};
}

Scale MonitorScale(HMONITOR monitor) {
    static LateFunction<HRESULT WINAPI(HMONITOR, int, UINT*, UINT*)> getDpiForMonitor(L"shcore.dll",
                                                                                      "GetDpiForMonitor");
    constexpr int kEffectiveDpi = 0;
    UINT x = 0;
    UINT y = 0;
    if (getDpiForMonitor.Get() != nullptr && SUCCEEDED(getDpiForMonitor.Get()(monitor, kEffectiveDpi, &x, &y))) {
        return Scale(static_cast<int>(x));
    }
    return SystemScale();
}

Scale PointScale(POINT point) {
    return MonitorScale(MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST));
}

}  // namespace quillo
