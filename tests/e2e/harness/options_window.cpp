#include "harness/options_window.h"

#include <algorithm>

#include "harness/ask.h"
#include "harness/eventually.h"
#include "harness/input.h"
#include "harness/main_menu.h"
#include "harness/quillo_process.h"
#include "harness/window_text.h"

namespace quillo::e2e {
namespace {

constexpr int kMostTabs = 40;  // more controls than any page has

}  // namespace

std::optional<OptionsWindow> OptionsWindow::Find(DWORD process) {
    for (HWND window : WindowsOf(process)) {
        if (ClassOf(window) == L"QuilloOptions" && IsWindowVisible(window) != 0) return OptionsWindow(window);
    }
    return std::nullopt;
}

std::optional<OptionsWindow> OptionsWindow::WaitFor(DWORD process) {
    std::optional<OptionsWindow> found;
    const bool came = Eventually([&] {
        found = Find(process);
        return found && IsChild(found->Handle(), KeyboardWindow()) != 0;
    });
    return came ? found : std::nullopt;
}

bool OptionsWindow::IsTopmost() const {
    return (GetWindowLongPtrW(window_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

std::optional<OptionsWindow> OptionsWindow::OpenFromMenu(DWORD process) {
    const MainMenu menu(process);
    if (!menu.Open() || !menu.Choose(MenuItem::Options)) return std::nullopt;
    return WaitFor(process);
}

HWND OptionsWindow::Control(OptionControl control) const {
    return GetDlgItem(GetDlgItem(window_, PanelIdOf(RowOf(control).page)), IdOf(control));
}

bool OptionsWindow::Shows(OptionsPage page) const {
    return IsWindowVisible(GetDlgItem(window_, PanelIdOf(page))) != 0;
}

bool OptionsWindow::IsChecked(OptionControl check) const {
    return Ask(Control(check), BM_GETCHECK) == BST_CHECKED;
}

std::wstring OptionsWindow::Text(OptionControl control) const {
    return WindowText(Control(control));
}

RECT OptionsWindow::AreaOf(OptionControl control) const {
    RECT area{};
    GetWindowRect(Control(control), &area);
    return area;
}

POINT OptionsWindow::MiddleOf(OptionControl control) const {
    const RECT area = AreaOf(control);
    return POINT{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

bool OptionsWindow::ClickTab(OptionsPage page) const {
    RECT strip{};
    GetWindowRect(TabStrip(), &strip);
    constexpr int kStep = 20;
    for (LONG x = strip.left + kStep; x < strip.right; x += kStep) {
        if (Shows(page)) return true;
        ClickMouse(POINT{x, (strip.top + strip.bottom) / 2});
        Ask(window_, WM_NULL);  // returns once the click has been handled
        if (Eventually([&] { return Shows(page); }, std::chrono::milliseconds(100))) return true;
    }
    return false;
}

bool OptionsWindow::KeyToTab(OptionsPage page) const {
    if (!TabTo(TabStrip())) return false;
    PressKey(VK_HOME);
    if (!Eventually([&] { return Shows(OptionsPage::Appearance); })) return false;
    for (int i = 1; i <= static_cast<int>(page); ++i) {
        PressKey(VK_RIGHT);
        if (!Eventually([&] { return Shows(static_cast<OptionsPage>(i)); })) return false;
    }
    return true;
}

void OptionsWindow::Click(OptionControl control) const {
    const RECT area = AreaOf(control);
    constexpr LONG kInCaption = 40;  // a check box is wider than its caption
    ClickMouse(POINT{std::min((area.left + area.right) / 2, area.left + kInCaption), (area.top + area.bottom) / 2});
}

bool OptionsWindow::TabTo(HWND control) const {
    for (int i = 0; i < kMostTabs; ++i) {
        HWND before = KeyboardWindow();
        if (before == control) return true;
        PressKey(VK_TAB);
        if (!Eventually([&] { return KeyboardWindow() != before; })) return false;
    }
    return false;
}

bool OptionsWindow::SetText(OptionControl box, const std::wstring& text) const {
    return Ask(Control(box), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str())) != 0;
}

bool OptionsWindow::Type(OptionControl box, const std::wstring& text) const {
    if (!TabTo(box)) return false;
    PressKey(VK_HOME);
    PressKey(VK_END, {VK_SHIFT});
    PressKey(VK_DELETE);
    TypeText(text);
    return Eventually([&] { return Text(box) == text; });
}

}  // namespace quillo::e2e
