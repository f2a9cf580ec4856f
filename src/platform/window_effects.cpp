#include "platform/window_effects.h"

namespace quillo {

void SetTopmost(HWND window, bool topmost) {
    SetWindowPos(window, topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void StartWindowDrag(HWND window, HWND pressed, Point at) {
    POINT screen{at.x, at.y};
    ClientToScreen(pressed, &screen);
    ReleaseCapture();
    SendMessageW(window, WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(screen.x, screen.y));
}

bool IsInFront(HWND window) {
    for (HWND above = GetWindow(window, GW_HWNDPREV); above != nullptr; above = GetWindow(above, GW_HWNDPREV)) {
        if (IsWindowVisible(above) && (GetWindowLongPtrW(above, GWL_EXSTYLE) & WS_EX_TOPMOST) == 0) return false;
    }
    return true;
}

void SetTranslucency(HWND window, std::optional<int> alpha) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_EXSTYLE);
    if (!alpha) {
        if ((style & WS_EX_LAYERED) != 0) {
            SetWindowLongPtrW(window, GWL_EXSTYLE, style & ~static_cast<LONG_PTR>(WS_EX_LAYERED));
            RedrawWindow(window, nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
        }
        return;
    }
    if ((style & WS_EX_LAYERED) == 0) SetWindowLongPtrW(window, GWL_EXSTYLE, style | WS_EX_LAYERED);
    SetLayeredWindowAttributes(window, 0, static_cast<BYTE>(*alpha), LWA_ALPHA);
}

bool DropShadowsAreOn() {
    BOOL shadows = FALSE;
    return SystemParametersInfoW(SPI_GETDROPSHADOW, 0, &shadows, 0) != 0 && shadows != FALSE;
}

void UpdateDropShadow(HWND window) {
    const ULONG_PTR style = GetClassLongPtrW(window, GCL_STYLE);
    const ULONG_PTR without = style & ~ULONG_PTR{CS_DROPSHADOW};
    const ULONG_PTR wanted = DropShadowsAreOn() ? without | CS_DROPSHADOW : without;
    if (wanted != style) SetClassLongPtrW(window, GCL_STYLE, static_cast<LONG_PTR>(wanted));
}

void SetTextMargins(HWND textBox, int margin) {
    SendMessageW(textBox, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(margin, margin));
}

bool HighContrastIsOn() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, contrast.cbSize, &contrast, 0) != 0 &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace quillo
