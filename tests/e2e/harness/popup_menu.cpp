#include "harness/popup_menu.h"

#include "harness/input.h"
#include "harness/note_text.h"

namespace quillo::e2e {
namespace {

/// The system's class of menus.
constexpr wchar_t kMenuClass[] = L"#32768";
/// Between the frame of a menu and its first line, at 96 dpi; a few pixels of a line do not matter.
constexpr int kFrame = 3;

}  // namespace

std::optional<PopupMenu> PopupMenu::Find(DWORD process) {
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, kMenuClass, nullptr)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == process && IsWindowVisible(window) != 0) return PopupMenu(window);
    }
    return std::nullopt;
}

std::optional<PopupMenu> PopupMenu::WaitFor(DWORD process) {
    std::optional<PopupMenu> found;
    (void)Eventually([&] {
        found = Find(process);
        return found.has_value();
    });
    return found;
}

RECT PopupMenu::Rectangle() const {
    RECT area{};
    GetWindowRect(window_, &area);
    return area;
}

bool PopupMenu::Click(int line, int lines) const {
    const RECT area = Rectangle();
    const int top = area.top + Px(kFrame);
    const int height = area.bottom - Px(kFrame) - top;
    const POINT at{area.left + Px(30), top + height * (2 * line + 1) / (2 * lines)};
    return Until([this] { return !IsOpen(); }, [at] { ClickMouse(at); });
}

bool PopupMenu::ChooseByKeys(int line) const {
    for (int i = 0; i <= line; ++i) PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    return Eventually([this] { return !IsOpen(); });
}

}  // namespace quillo::e2e
