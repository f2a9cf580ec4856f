#include "harness/popup_menu.h"

#include <algorithm>
#include <map>
#include <vector>

#include "harness/input.h"
#include "harness/note_text.h"
#include "harness/screen.h"

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

std::optional<PopupMenu> PopupMenu::FindReady(DWORD process) {
    const std::optional<PopupMenu> menu = Find(process);
    if (!menu) return std::nullopt;
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(menu->window_, nullptr);
    const bool ready = GetGUIThreadInfo(thread, &info) != 0 && (info.flags & GUI_INMENUMODE) != 0;
    return ready ? menu : std::nullopt;
}

std::optional<PopupMenu> PopupMenu::WaitFor(DWORD process) {
    std::optional<PopupMenu> found;
    (void)Eventually([&] {
        found = FindReady(process);
        return found.has_value();
    });
    return found;
}

RECT PopupMenu::Rectangle() const {
    RECT area{};
    GetWindowRect(window_, &area);
    return area;
}

POINT PopupMenu::LinePoint(int line, int lines) const {
    const RECT area = Rectangle();
    const int top = area.top + Px(kFrame);
    const int height = area.bottom - Px(kFrame) - top;
    return POINT{area.left + Px(30), top + height * (2 * line + 1) / (2 * lines)};
}

bool PopupMenu::IsMarked(int line, int lines) const {
    // At the right end, where no caption reaches.
    const LONG right = Rectangle().right - Px(8);
    std::map<COLORREF, std::vector<int>> linesByColor;
    for (int i = 0; i < lines; ++i) linesByColor[ScreenPixel(POINT{right, LinePoint(i, lines).y})].push_back(i);
    const auto isThis = [line](const auto& entry) { return entry.second == std::vector<int>{line}; };
    return linesByColor.size() == 2 && std::any_of(linesByColor.begin(), linesByColor.end(), isThis);
}

bool PopupMenu::Click(int line, int lines) const {
    const POINT at = LinePoint(line, lines);
    return Until([this] { return !IsOpen(); }, [at] { ClickMouse(at); });
}

bool PopupMenu::ChooseByKeys(int line, int lines) const {
    // A pointer over the menu also marks a line: Enter waits until the right one is marked.
    constexpr std::chrono::milliseconds kForOneStep{100};
    constexpr int kFewestToCompare = 3;  // with two lines, neither differs from the others
    if (lines < kFewestToCompare) {
        for (int i = 0; i <= line; ++i) PressKey(VK_DOWN);
    } else {
        const auto isMarked = [&] { return IsMarked(line, lines); };
        for (int step = 0; step < 4 * lines && !Eventually(isMarked, kForOneStep); ++step) PressKey(VK_DOWN);
        if (!isMarked()) return false;
    }
    PressKey(VK_RETURN);
    return Eventually([this] { return !IsOpen(); });
}

}  // namespace quillo::e2e
