#include "control_fixture.h"

namespace quillo::windows_tests {

ControlParent::ControlParent() {
    // The pointer of an earlier test must not be over the control.
    SetCursorPos(900, 700);
    PumpWaiting();
    WindowPlan plan;
    plan.className = L"QuilloControlParent";
    plan.style = WS_POPUP | WS_VISIBLE;
    plan.exStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST;
    plan.place = Rect{200, 200, 460, 240};
    EXPECT_TRUE(Create(plan));
    PumpWaiting();
}

LRESULT ControlParent::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND: {
            RECT area{};
            GetClientRect(Handle(), &area);
            FillRect(reinterpret_cast<HDC>(wParam), &area, ground_.Get());
            return 1;
        }
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<LRESULT>(ground_.Get());
        default:
            return Default(message, wParam, lParam);
    }
}

void SendMouse(HWND window, UINT message, WPARAM keys, Point at) {
    POINT screen{at.x, at.y};
    ClientToScreen(window, &screen);
    SetCursorPos(screen.x, screen.y);
    SendMessageW(window, message, keys, MAKELPARAM(at.x, at.y));
}

COLORREF PaintedAt(HWND window, Point at) {
    PaintNow(window);
    return PixelOf(window, at);
}

}  // namespace quillo::windows_tests
