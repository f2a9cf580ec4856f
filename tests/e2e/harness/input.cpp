#include "harness/input.h"

namespace quillo::e2e {
namespace {

void Send(std::vector<INPUT> inputs) {
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

INPUT MouseInput(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    return input;
}

/// Moves the pointer to a place on the screen, in device pixels.
INPUT MoveInput(POINT to) {
    constexpr int kSpan = 65536;  // the system's units across the virtual screen
    const int width = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const int height = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    INPUT input = MouseInput(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK);
    // Rounded up: the system rounds down when it converts back.
    input.mi.dx = ((to.x - GetSystemMetrics(SM_XVIRTUALSCREEN)) * kSpan + width - 1) / width;
    input.mi.dy = ((to.y - GetSystemMetrics(SM_YVIRTUALSCREEN)) * kSpan + height - 1) / height;
    return input;
}

INPUT KeyInput(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    // Only this flag distinguishes the right Alt key from the left one.
    const DWORD which = key == VK_RMENU ? KEYEVENTF_EXTENDEDKEY : 0;
    input.ki.dwFlags = which | (up ? KEYEVENTF_KEYUP : 0);
    return input;
}

INPUT CharacterInput(wchar_t character, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = character;
    input.ki.dwFlags = KEYEVENTF_UNICODE | (up ? KEYEVENTF_KEYUP : 0);
    return input;
}

/// Waits until the program that owns the window at `at` has captured the mouse: earlier moves and releases would reach
/// the window that is then under the pointer. False if it does not capture it, as after a press that drags nothing.
bool MouseIsTaken(POINT at) {
    const DWORD thread = GetWindowThreadProcessId(WindowFromPoint(at), nullptr);
    return Eventually(
        [thread] {
            GUITHREADINFO info{};
            info.cbSize = sizeof info;
            if (GetGUIThreadInfo(thread, &info) == 0) return false;
            return info.hwndCapture != nullptr || (info.flags & GUI_INMOVESIZE) != 0;
        },
        std::chrono::seconds(2));
}

/// False if a window of the active program that is not at `at` has captured the mouse: a button captures it while the
/// pointer hovers, to notice when it leaves.
bool MouseIsFreeFor(POINT at) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (GetGUIThreadInfo(0, &info) == 0 || info.hwndCapture == nullptr) return true;
    if ((info.flags & GUI_INMENUMODE) != 0) return true;
    RECT place{};
    return GetWindowRect(info.hwndCapture, &place) == 0 || PtInRect(&place, at) != 0;
}

/// Waits until the button that the pointer has left has noticed that; otherwise it would receive the press.
void LeaveOtherButtons(POINT at) {
    constexpr int kAttempts = 8;
    for (int i = 0; i < kAttempts; ++i) {
        if (Eventually([at] { return MouseIsFreeFor(at); }, std::chrono::milliseconds(250))) return;
        Send({MoveInput(POINT{at.x + 1, at.y}), MoveInput(at)});
    }
}

}  // namespace

void MoveMouse(POINT to) {
    SetCursorPos(to.x, to.y);
    // The system moves the pointer without notifying the window below it; this message does.
    Send({MouseInput(MOUSEEVENTF_MOVE)});
    (void)Eventually(
        [to] {
            POINT now{};
            GetCursorPos(&now);
            return now.x == to.x && now.y == to.y;
        },
        std::chrono::seconds(1));
}

void PressMouse(POINT at) {
    Send({MoveInput(at), MouseInput(MOUSEEVENTF_LEFTDOWN)});
}

void ReleaseMouse(POINT at) {
    Send({MoveInput(at), MouseInput(MOUSEEVENTF_LEFTUP)});
}

void DragMouse(POINT from, POINT to) {
    constexpr int kSteps = 8;
    MoveMouse(from);
    PressMouse(from);
    (void)MouseIsTaken(from);
    for (int i = 1; i <= kSteps; ++i) {
        MoveMouse(POINT{from.x + (to.x - from.x) * i / kSteps, from.y + (to.y - from.y) * i / kSteps});
    }
    ReleaseMouse(to);
}

void ClickMouse(POINT at) {
    MoveMouse(at);
    LeaveOtherButtons(at);
    PressMouse(at);
    ReleaseMouse(at);
}

void RightClickMouse(POINT at) {
    MoveMouse(at);
    Send({MoveInput(at), MouseInput(MOUSEEVENTF_RIGHTDOWN)});
    Send({MoveInput(at), MouseInput(MOUSEEVENTF_RIGHTUP)});
}

void ClickMouseHolding(WORD key, POINT at) {
    MoveMouse(at);
    LeaveOtherButtons(at);
    // In one call: under Wine a late event of the X server would release the key before the click.
    Send({KeyInput(key, false), MoveInput(at), MouseInput(MOUSEEVENTF_LEFTDOWN), MouseInput(MOUSEEVENTF_LEFTUP),
          KeyInput(key, true)});
}

void PressKey(WORD key, const std::vector<WORD>& held) {
    std::vector<INPUT> inputs;
    for (const WORD modifier : held) inputs.push_back(KeyInput(modifier, false));
    inputs.push_back(KeyInput(key, false));
    inputs.push_back(KeyInput(key, true));
    for (auto modifier = held.rbegin(); modifier != held.rend(); ++modifier)
        inputs.push_back(KeyInput(*modifier, true));
    Send(std::move(inputs));
}

void TypeText(std::wstring_view text) {
    for (const wchar_t character : text) {
        if (character == L'\n') {
            PressKey(VK_RETURN);
        } else {
            Send({CharacterInput(character, false), CharacterInput(character, true)});
        }
    }
}

}  // namespace quillo::e2e
