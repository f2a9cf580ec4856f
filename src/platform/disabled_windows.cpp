#include "platform/disabled_windows.h"

#include "platform/window.h"

namespace quillo {
namespace {

/// Hidden windows, such as those of an input method, do not belong to the user.
bool TakesInput(HWND window) {
    const bool own = reinterpret_cast<HINSTANCE>(GetClassLongPtrW(window, GCLP_HMODULE)) == ThisModule();
    return IsWindowEnabled(window) != 0 && (own || IsWindowVisible(window) != 0);
}

}  // namespace

DisabledWindows::DisabledWindows(HWND spared) : spared_(spared) {
    EnumThreadWindows(GetCurrentThreadId(), &DisabledWindows::Disable, reinterpret_cast<LPARAM>(this));
}

DisabledWindows::~DisabledWindows() {
    for (HWND window : windows_) {
        // The handle of a window that has ended may belong to another thread by now.
        if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()) EnableWindow(window, TRUE);
    }
}

BOOL CALLBACK DisabledWindows::Disable(HWND window, LPARAM self) noexcept {
    auto& scope = *reinterpret_cast<DisabledWindows*>(self);
    if (window == scope.spared_ || !TakesInput(window)) return TRUE;
    scope.windows_.push_back(window);
    EnableWindow(window, FALSE);
    return TRUE;
}

}  // namespace quillo
