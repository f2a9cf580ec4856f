#include "platform/drawn_window.h"

namespace quillo {

LRESULT DrawnWindow::Default(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            return OnPaint(), 0;
        default:
            return Window::Default(message, wParam, lParam);
    }
}

}  // namespace quillo
