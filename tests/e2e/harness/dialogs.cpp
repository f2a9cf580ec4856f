#include "harness/dialogs.h"

#include <array>
#include <vector>

#include "harness/quillo_process.h"
#include "harness/screen.h"

namespace quillo::e2e {
namespace {

// The controls of every message box of the system.
constexpr int kTextId = 0xFFFF;
constexpr int kIconId = 20;

std::wstring TextOf(HWND window) {
    std::array<wchar_t, 1024> text{};
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_ABORTIFHUNG, 5000,
                        &length);
    return text.data();
}

/// The icon's control has a fixed id only on some systems: it is the one static control with the icon style.
BOOL CALLBACK FindIcon(HWND child, LPARAM parameter) {
    const LONG_PTR kind = GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK;
    if (ClassOf(child) != L"Static" || (kind != SS_ICON && GetDlgCtrlID(child) != kIconId)) return TRUE;
    *reinterpret_cast<HWND*>(parameter) = child;
    return FALSE;
}

}  // namespace

std::optional<MessageBoxWindow> MessageBoxWindow::Find(DWORD process) {
    for (HWND window : WindowsOf(process)) {
        if (ClassOf(window) == L"#32770" && IsWindowVisible(window) != 0) return MessageBoxWindow(window);
    }
    return std::nullopt;
}

std::optional<MessageBoxWindow> MessageBoxWindow::WaitFor(DWORD process) {
    std::optional<MessageBoxWindow> found;
    (void)Eventually([&] {
        found = Find(process);
        return found.has_value();
    });
    return found;
}

std::wstring MessageBoxWindow::Title() const {
    return TextOf(window_);
}

std::wstring MessageBoxWindow::Text() const {
    return TextOf(GetDlgItem(window_, kTextId));
}

bool MessageBoxWindow::ShowsIcon(std::size_t number) const {
    HWND icon = nullptr;
    EnumChildWindows(window_, &FindIcon, reinterpret_cast<LPARAM>(&icon));
    if (icon == nullptr) return false;
    // The names of the system's icons are numbers cast to pointers, narrow or wide.
    std::vector<HICON> icons;
    constexpr WORD kFirst = 32512;
    constexpr WORD kLast = 32516;
    for (WORD name = kFirst; name <= kLast; ++name) icons.push_back(LoadIconW(nullptr, MAKEINTRESOURCEW(name)));
    return Eventually([&] {
        RECT area{};
        GetWindowRect(icon, &area);
        const COLORREF background = ScreenPixel(POINT{area.left - 1, area.top - 1});
        return NearestIcon(area, background, icons) == number;
    });
}

bool MessageBoxWindow::Answer(int button) const {
    PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(button), 0);
    return Eventually([this] { return IsWindow(window_) == 0 || IsWindowVisible(window_) == 0; });
}

}  // namespace quillo::e2e
