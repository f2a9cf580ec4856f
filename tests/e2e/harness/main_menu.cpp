#include "harness/main_menu.h"

#include "harness/eventually.h"
#include "harness/input.h"
#include "harness/note_text.h"
#include "harness/quillo_process.h"
#include "harness/tray.h"
#include "harness/window_text.h"
#include "platform/com_ptr.h"
#include "platform/com_scope.h"
#include "platform/late_library.h"

// After windows.h.
#include <oleacc.h>

namespace quillo::e2e {
namespace {

constexpr UINT kIconMessage = 512;
constexpr wchar_t kToolTip[] = L"Quillo";

/// False while the window still fades in.
bool IsOpaque(HWND window) {
    BYTE alpha = 255;
    const bool layered = (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_LAYERED) != 0;
    return !layered || GetLayeredWindowAttributes(window, nullptr, &alpha, nullptr) == 0 || alpha == 255;
}

}  // namespace

Rect AreaOf(MenuItem item) {
    switch (item) {
        case MenuItem::None:
            return Rect{20, 5, 200, 30};
        case MenuItem::Close:
            return Rect{265, 0, 35, 40};
        case MenuItem::NewNote:
            return Rect{0, 40, 100, 140};
        case MenuItem::ShowAllNotes:
            return Rect{100, 40, 100, 80};
        case MenuItem::Options:
            return Rect{201, 40, 99, 80};
        case MenuItem::About:
            return Rect{231, 0, 34, 40};
        default:
            return Rect{100 + (ShortcutNumber(item) - 1) * 50, 120, 50, 60};
    }
}

HWND MainMenu::Handle() const {
    for (HWND window : WindowsOf(process_)) {
        if (ClassOf(window) == L"QuilloMenu") return window;
    }
    return nullptr;
}

bool MainMenu::IsShowing() const {
    return IsWindowVisible(Handle()) != 0;
}

::testing::AssertionResult MainMenu::Open() const {
    const auto icon = FindTrayIcon(process_, kToolTip);
    if (!icon) return ::testing::AssertionFailure() << "no icon beside the clock has the tool tip";
    if (!Until([this] { return IsShowing(); }, [icon] { ClickMouse(*icon); })) {
        return ::testing::AssertionFailure()
               << "clicks on the icon at " << icon->x << ", " << icon->y << " do not open the menu";
    }
    if (!Eventually([this] { return HasKeyboard() && IsOpaque(Handle()); })) {
        return ::testing::AssertionFailure() << "the menu does not open completely: " << State();
    }
    if (!LeaveIt()) return ::testing::AssertionFailure() << "the pointer cannot leave the menu: " << State();
    // The icon's tool tip would cover a part of the menu.
    if (Eventually([] { return !IsToolTipShown(kToolTip); })) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "the tool tip of the icon does not disappear";
}

/// Moves the pointer away from the menu, which has opened below it and has marked the item there, or is about to. Under
/// Wine the system does not report that the pointer has left if it leaves before the program has requested the report,
/// and the mark would stay. The moves are handled in their order: when the last has taken the mark away, no other
/// follows.
bool MainMenu::LeaveIt() const {
    for (const MenuItem item : {MenuItem::NewNote, MenuItem::None}) {
        if (!Until([&] { return Marked() == item; }, [&] { MoveMouse(MiddleOf(item)); })) return false;
    }
    MoveMouse(POINT{0, 0});
    return true;
}

bool MainMenu::WaitUntilGone() const {
    return Eventually([this] { return !IsShowing(); });
}

void MainMenu::SendToIcon(UINT message) const {
    std::vector<HWND> icons;
    // The program adds its icon after its notes have painted.
    if (Eventually([&] { return (icons = TrayIconWindows(process_)).size() == 1; }))
        PostMessageW(icons.front(), kIconMessage, 1, static_cast<LPARAM>(message));
}

POINT MainMenu::OnScreen(int x, int y) const {
    RECT window{};
    GetWindowRect(Handle(), &window);
    return POINT{window.left + Px(x), window.top + Px(y)};
}

POINT MainMenu::MiddleOf(MenuItem item) const {
    const Rect area = AreaOf(item);
    return OnScreen(area.left + area.width / 2, area.top + area.height / 2);
}

bool MainMenu::Choose(MenuItem item) const {
    return Until([this] { return !IsShowing(); }, [&] { ClickMouse(MiddleOf(item)); });
}

std::vector<COLORREF> MainMenu::Look(const Rect& area) const {
    const POINT from = OnScreen(area.left, area.top);
    const POINT to = OnScreen(area.Right(), area.Bottom());
    const ScreenCopy copy(RECT{from.x, from.y, to.x, to.y});
    std::vector<COLORREF> pixels;
    for (int y = 0; y < copy.Height(); ++y) {
        for (int x = 0; x < copy.Width(); ++x) pixels.push_back(copy.At(x, y));
    }
    return pixels;
}

std::vector<COLORREF> MainMenu::Look(MenuItem item) const {
    return Look(AreaOf(item));
}

bool MainMenu::HasKeyboard() const {
    return KeyboardWindow() == Handle();
}

MenuItem MainMenu::Marked() const {
    static LateFunction<decltype(AccessibleObjectFromWindow)> find(L"oleacc.dll", "AccessibleObjectFromWindow");
    const ComScope com;
    ComPtr<IAccessible> menu;
    if (find.Get()(Handle(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, menu.PutVoid()) != S_OK) {
        return MenuItem::None;
    }
    VARIANT part{};
    if (menu->get_accFocus(&part) != S_OK || part.vt != VT_I4 || part.lVal == CHILDID_SELF) return MenuItem::None;
    return MenuOrder().at(static_cast<std::size_t>(part.lVal) - 1);
}

std::string MainMenu::State() const {
    std::string state = IsShowing() ? "the menu is showing" : "the menu is not showing";
    state += HasKeyboard() ? " and has the keyboard focus" : " without the keyboard focus";
    POINT pointer{};
    GetCursorPos(&pointer);
    return state + ", item " + std::to_string(static_cast<int>(Marked())) + " is marked, the pointer is at " +
           std::to_string(pointer.x) + ", " + std::to_string(pointer.y);
}

}  // namespace quillo::e2e
