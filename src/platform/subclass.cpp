#include "platform/subclass.h"

namespace quillo {

SubclassedControl::~SubclassedControl() {
    if (handle_ == nullptr) return;
    SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure_));
    SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
}

void SubclassedControl::Subclass(HWND control) {
    handle_ = control;
    SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    procedure_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&SubclassedControl::Procedure)));
}

LRESULT SubclassedControl::Default(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(procedure_, handle_, message, wParam, lParam);
}

LRESULT CALLBACK SubclassedControl::Procedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto& self = *reinterpret_cast<SubclassedControl*>(GetWindowLongPtrW(control, GWLP_USERDATA));
    LRESULT result = 0;
    try {
        result = self.HandleMessage(message, wParam, lParam);
    } catch (...) {
        // Only misuse of a class throws.
    }
    if (message == WM_NCDESTROY) self.handle_ = nullptr;
    return result;
}

}  // namespace quillo
