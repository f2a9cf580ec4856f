#include "bench/hand_actions.h"

#include <algorithm>
#include <chrono>

#include "harness/input.h"
#include "notes/note_button_bar.h"

namespace quillo::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{20};
constexpr DWORD kBetweenMilliseconds = 1;
/// Only the large note has more characters.
constexpr LRESULT kLargeCharacters = 100'000;
constexpr wchar_t kMenuClass[] = L"QuilloMenu";

HWND BoxOf(HWND note) {
    return FindWindowExW(note, nullptr, L"Edit", nullptr);
}

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

GUITHREADINFO ThreadOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info;
}

/// The answer of a window of the measured program; 0 if it does not answer.
LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    constexpr UINT kPatienceMilliseconds = 20'000;
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kPatienceMilliseconds, &answer);
    return static_cast<LRESULT>(answer);
}

bool ArePainted(const std::vector<HWND>& windows) {
    return std::all_of(windows.begin(), windows.end(), &IsPainted);
}

/// Moves the pointer there until the program has followed: a late event of the desktop may put the pointer back.
bool PointAt(POINT at, const std::function<bool()>& hasFollowed) {
    constexpr std::chrono::milliseconds kForOne{250};
    const auto deadline = Clock::now() + kPatience;
    while (Clock::now() < deadline) {
        e2e::MoveMouse(at);
        const auto again = Clock::now() + kForOne;
        while (!hasFollowed() && Clock::now() < again) Sleep(kBetweenMilliseconds);
        if (hasFollowed()) return true;
    }
    return false;
}

/// A click on the strip of the note, beside its buttons.
bool Activate(HWND note) {
    if (GetForegroundWindow() == note) return true;
    const RECT place = PlaceOf(note);
    e2e::ClickMouse(POINT{place.left + (place.right - place.left) * 2 / 5, place.top + 4});
    return WaitUntil([note] { return GetForegroundWindow() == note; });
}

/// Presses the left button at a point of the note and moves the pointer there and back again, a step at a time. After
/// each step `follows` gets the distance from the start, and everything is painted.
bool PullThereAndBack(const Hand& hand, POINT from, SIZE way, const std::function<bool(SIZE)>& follows) {
    constexpr int kSteps = 50;
    if (!Activate(hand.note)) return false;
    e2e::MoveMouse(from);
    e2e::PressMouse(from);
    bool followed = WaitUntil([&] { return (ThreadOf(hand.note).flags & GUI_INMOVESIZE) != 0; });
    for (int i = 1; followed && i <= 2 * kSteps; ++i) {
        const int step = i <= kSteps ? i : 2 * kSteps - i;
        const SIZE moved{way.cx * step / kSteps, way.cy * step / kSteps};
        followed = PointAt(POINT{from.x + moved.cx, from.y + moved.cy}, [&] { return follows(moved); }) &&
                   WaitUntil([&] { return ArePainted(hand.all); });
    }
    e2e::ReleaseMouse(from);
    return WaitUntil([&] { return (ThreadOf(hand.note).flags & GUI_INMOVESIZE) == 0; }) && followed;
}

/// The message of the icon beside the clock.
bool SendToIcon(UINT mouseMessage) {
    constexpr UINT kIconMessage = 512;
    constexpr WPARAM kIconId = 1;
    HWND icon = nullptr;
    return WaitUntil(
               [&] { return (icon = FindWindowExW(HWND_MESSAGE, nullptr, L"QuilloTrayIcon", nullptr)) != nullptr; }) &&
           PostMessageW(icon, kIconMessage, kIconId, static_cast<LPARAM>(mouseMessage)) != 0;
}

int AlphaOf(HWND window) {
    BYTE alpha = 255;
    GetLayeredWindowAttributes(window, nullptr, &alpha, nullptr);
    return alpha;
}

/// The window of a note that is not among `known`; null if there is none.
HWND NewcomerAmong(const std::vector<HWND>& windows, const std::vector<HWND>& known) {
    const auto isNew = [&](HWND window) { return std::find(known.begin(), known.end(), window) == known.end(); };
    const auto found = std::find_if(windows.begin(), windows.end(), isNew);
    return found == windows.end() ? nullptr : *found;
}

/// A window of this program in front of everything but topmost windows.
class Cover {
  public:
    Cover()
        : window_(CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0,
                                  GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr)) {
        SetForegroundWindow(window_);
        SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    }
    Cover(const Cover&) = delete;
    Cover& operator=(const Cover&) = delete;
    ~Cover() { DestroyWindow(window_); }

    /// Whether a window of these is behind it.
    [[nodiscard]] bool Hides(const std::vector<HWND>& windows) const {
        HWND below = window_;
        while ((below = GetWindow(below, GW_HWNDNEXT)) != nullptr) {
            if (std::find(windows.begin(), windows.end(), below) != windows.end()) return true;
        }
        return false;
    }

  private:
    HWND window_;
};

}  // namespace

Hand Hand::Of(const ProgramRun& run) {
    Hand hand{run, nullptr, nullptr, run.Windows()};
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    for (HWND window : hand.all) {
        const RECT place = PlaceOf(window);
        RECT common{};
        const bool isWhole = IntersectRect(&common, &screen, &place) != 0 && EqualRect(&common, &place) != 0;
        if (Ask(BoxOf(window), WM_GETTEXTLENGTH) > kLargeCharacters) {
            hand.large = window;
        } else if (hand.note == nullptr && isWhole) {
            hand.note = window;  // the list begins with the frontmost
        }
    }
    return hand;
}

Cost CostOf(const ProgramRun& run, const std::function<bool()>& action) {
    Cost cost;
    const double before = run.ProcessorMilliseconds();
    const auto begin = Clock::now();
    if (!action()) return cost;
    cost.clock = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
    cost.processor = run.ProcessorMilliseconds() - before;
    return cost;
}

bool WaitUntil(const std::function<bool()>& condition) {
    const auto deadline = Clock::now() + kPatience;
    while (!condition()) {
        if (Clock::now() > deadline) return false;
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageW(&message);
        Sleep(kBetweenMilliseconds);
    }
    return true;
}

bool Type(const Hand& hand, int characters) {
    constexpr int kAtOnce = 25;
    HWND box = BoxOf(hand.note);
    if (!Activate(hand.note) || !WaitUntil([&] { return ThreadOf(box).hwndFocus == box; })) return false;
    const LRESULT length = Ask(box, WM_GETTEXTLENGTH);
    Ask(box, EM_SETSEL, static_cast<WPARAM>(length), length);
    LRESULT expected = length;
    for (int i = 0; i < characters; ++i) {
        constexpr int kWord = 6;
        constexpr int kLine = 60;
        const int key = i % kLine == kLine - 1 ? VK_RETURN : i % kWord == kWord - 1 ? VK_SPACE : 'A' + i % 26;
        PostMessageW(box, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        PostMessageW(box, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
        expected += key == VK_RETURN ? 2 : 1;
        // A hand is slower than the program, which therefore paints between two keys.
        if (i % kAtOnce != kAtOnce - 1) continue;
        if (!WaitUntil([&] { return Ask(box, WM_GETTEXTLENGTH) >= expected && IsPainted(hand.note); })) return false;
    }
    return true;
}

bool Drag(const Hand& hand) {
    const RECT start = PlaceOf(hand.note);
    const POINT bar{start.left + (start.right - start.left) * 2 / 5, start.top + 8};
    const SIZE way{40 - start.left, 40 - start.top};
    return PullThereAndBack(hand, bar, way, [&](SIZE moved) {
        const RECT now = PlaceOf(hand.note);
        return now.left == start.left + moved.cx && now.top == start.top + moved.cy;
    });
}

bool Resize(const Hand& hand) {
    constexpr int kInside = 5;
    const RECT start = PlaceOf(hand.note);
    const POINT corner{start.right - kInside, start.bottom - kInside};
    return PullThereAndBack(hand, corner, SIZE{200, 150}, [&](SIZE moved) {
        const RECT now = PlaceOf(hand.note);
        return now.right == start.right + moved.cx && now.bottom == start.bottom + moved.cy;
    });
}

bool Hover(const Hand& hand, int changes) {
    if (!Activate(hand.note)) return false;
    HWND cross = GetDlgItem(hand.note, kCloseButtonId);
    const RECT button = PlaceOf(cross);
    const RECT note = PlaceOf(hand.note);
    const POINT on{(button.left + button.right) / 2, (button.top + button.bottom) / 2};
    const POINT off{(note.left + note.right) / 2, on.y};
    for (int i = 0; i < changes; ++i) {
        const bool isOn = i % 2 == 0;
        // A button captures the mouse while the pointer is over it.
        const bool changed = PointAt(isOn ? on : off, [&] {
            return (ThreadOf(cross).hwndCapture == cross) == isOn && GetUpdateRect(cross, nullptr, FALSE) == 0;
        });
        if (!changed) return false;
    }
    return true;
}

bool Scroll(const Hand& hand, int pages) {
    HWND box = BoxOf(hand.large);
    for (int i = 0; i < pages; ++i) {
        Ask(box, WM_VSCROLL, SB_PAGEDOWN);
        if (!WaitUntil([&] { return IsPainted(hand.large); })) return false;
    }
    const bool hasScrolled = Ask(box, EM_GETFIRSTVISIBLELINE) >= pages;
    Ask(box, WM_VSCROLL, SB_TOP);
    return hasScrolled && WaitUntil([&] { return IsPainted(hand.large); });
}

bool ShowAllNotes(const Hand& hand) {
    const Cover cover;
    if (!WaitUntil([&] { return cover.Hides({hand.note}); })) return false;
    return SendToIcon(WM_RBUTTONUP) && WaitUntil([&] { return !cover.Hides(hand.all) && ArePainted(hand.all); });
}

bool OpenMenu(const Hand& hand) {
    if (!OpenMenuToFirstFrame(hand)) return false;
    HWND menu = FindWindowW(kMenuClass, nullptr);
    return WaitUntil([menu] { return AlphaOf(menu) == 255 && GetUpdateRect(menu, nullptr, FALSE) == 0; });
}

bool OpenMenuToFirstFrame(const Hand& /*hand*/) {
    HWND menu = FindWindowW(kMenuClass, nullptr);
    if (menu == nullptr || IsWindowVisible(menu) != 0 || !SendToIcon(WM_LBUTTONUP)) return false;
    return WaitUntil([menu] { return IsWindowVisible(menu) != 0 && GetUpdateRect(menu, nullptr, FALSE) == 0; });
}

bool CloseMenu() {
    HWND menu = FindWindowW(kMenuClass, nullptr);
    PostMessageW(menu, WM_KEYDOWN, VK_ESCAPE, 1);
    return WaitUntil([menu] { return IsWindowVisible(menu) == 0; });
}

bool NewNoteByHotKey(const Hand& hand) {
    const std::vector<HWND> before = hand.run.Windows();
    e2e::PressKey('N', {VK_LWIN});
    return WaitUntil([&] {
        HWND note = NewcomerAmong(hand.run.Windows(), before);
        if (note == nullptr) return false;
        HWND box = BoxOf(note);
        return box != nullptr && IsPainted(note) && ThreadOf(note).hwndCaret == box;
    });
}

bool OpenFileBySecondStart(const Hand& hand, const std::wstring& exe, const std::wstring& file) {
    const std::vector<HWND> before = hand.run.Windows();
    std::wstring line = L"\"" + exe + L"\" \"" + file + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &info) == 0)
        return false;
    const KernelHandle process(info.hProcess);
    const KernelHandle thread(info.hThread);
    const bool shown = WaitUntil([&] {
        HWND note = NewcomerAmong(hand.run.Windows(), before);
        return note != nullptr && IsPainted(note);
    });
    WaitForSingleObject(process.Get(), INFINITE);
    return shown;
}

}  // namespace quillo::bench
