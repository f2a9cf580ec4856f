#include "platform/window.h"

#include "platform/gdi_scope.h"

namespace quillo {
namespace {

/// The named constant is narrow text while UNICODE is off.
HCURSOR ArrowCursor() {
    constexpr WORD kArrow = 32512;
    return LoadCursorW(nullptr, MAKEINTRESOURCEW(kArrow));
}

}  // namespace

HINSTANCE ThisModule() {
    return GetModuleHandleW(nullptr);
}

bool Window::Register(const wchar_t* name, UINT style, const WindowPlan& plan) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = style;
    windowClass.lpfnWndProc = &Window::Procedure;
    windowClass.cbWndExtra = plan.extraBytes;
    windowClass.hInstance = ThisModule();
    windowClass.hCursor = plan.cursor != nullptr ? plan.cursor : ArrowCursor();
    windowClass.lpszClassName = name;
    return RegisterClassExW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

bool Window::Create(const WindowPlan& plan) {
    return Register(plan.className, 0, plan) && CreateOf(plan.className, plan);
}

bool Window::Create(WindowClass& windowClass, const WindowPlan& plan) {
    if (!windowClass.registered_) windowClass.registered_ = Register(windowClass.name_, windowClass.style_(), plan);
    return windowClass.registered_ && CreateOf(windowClass.name_, plan);
}

bool Window::CreateOf(const wchar_t* className, const WindowPlan& plan) {
    const auto id = static_cast<UINT_PTR>(plan.childId);
    CreateWindowExW(plan.exStyle, className, plan.title, plan.style, plan.place.left, plan.place.top, plan.place.width,
                    plan.place.height, plan.parent, reinterpret_cast<HMENU>(id), ThisModule(), this);
    return handle_ != nullptr;
}

Window::~Window() {
    if (handle_ == nullptr) return;
    SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
    DestroyWindow(handle_);
}

void Window::Destroy() {
    if (handle_ != nullptr) DestroyWindow(handle_);
}

LRESULT Window::Default(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(handle_, message, wParam, lParam);
}

Rect Window::ClientRect() const {
    RECT client{};
    GetClientRect(handle_, &client);
    return FromWin32(client);
}

void Window::Invalidate() const {
    // Without a window the call would mean every window on the desktop.
    if (handle_ != nullptr) InvalidateRect(handle_, nullptr, FALSE);
}

bool Window::ShowsFocus() const {
    return GetFocus() == handle_ && (SendMessageW(handle_, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) == 0;
}

void Window::ShowKeyboardCues() const {
    SendMessageW(handle_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        auto* created = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        created->handle_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    LRESULT result = 0;
    try {
        result = self->HandleMessage(message, wParam, lParam);
    } catch (...) {
        // Only misuse of a class throws; the message is dropped and the program continues with its notes.
        result = DefWindowProcW(window, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->handle_ = nullptr;
    }
    return result;
}

}  // namespace quillo
