#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "controls/tessel_tray_lite.h"
#include "platform/win_locale_text.h"

// After windows.h.
#include <shellapi.h>

namespace quillo {
namespace {

using testing::ElementsAre;

constexpr UINT kCallback = 512;
constexpr DWORD kDeadline = 15'000;

void DispatchWaiting() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// Dispatches messages until the condition holds; false if it does not within `milliseconds`.
bool WaitFor(const std::function<bool()>& condition, DWORD milliseconds = kDeadline) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (;;) {
        DispatchWaiting();
        if (condition()) return true;
        if (GetTickCount64() >= end) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

/// The places of icons are known only on Wine's virtual desktop, whose task bar appears with the first icon.
HWND KnownTaskBar() {
    const bool wine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    const HWND taskBar = wine ? FindWindowW(L"Shell_TrayWnd", nullptr) : nullptr;
    return taskBar != nullptr && IsWindowVisible(taskBar) ? taskBar : nullptr;
}

/// Records the messages to the control's window before the control handles them.
class Listener {
  public:
    explicit Listener(HWND window) : window_(window) {
        current_ = this;
        before_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Listener::Procedure)));
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() {
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(before_));
        current_ = nullptr;
    }
    [[nodiscard]] bool Heard(UINT message, int times = 1) const {
        return std::count(heard_.begin(), heard_.end(), message) >= times;
    }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        // Sent ones come a second time, as posted ones.
        if (message == kCallback && InSendMessageEx(nullptr) == ISMEX_NOSEND) {
            current_->heard_.push_back(LOWORD(lParam));
        }
        return CallWindowProcW(current_->before_, window, message, wParam, lParam);
    }

    static inline Listener* current_ = nullptr;
    HWND window_;
    WNDPROC before_ = nullptr;
    std::vector<UINT> heard_;
};

class TrayTest : public testing::Test {
  protected:
    TrayTest() {
        tray_->onClick = [this] { events_.emplace_back("Click"); };
        tray_->onRightClick = [this] { events_.emplace_back("RightClick"); };
        tray_->onDblClick = [this] { events_.emplace_back("DblClick"); };
        tray_->onBalloonClick = [this] { events_.emplace_back("BalloonClick"); };
    }

    /// False if the system has no notification area that accepts icons.
    bool Show() {
        TrayProperties properties;
        properties.toolTipText = u"Milk, eggs and tea";
        properties.icon = ToTrayHandle(picture_);
        tray_->LoadProperties(properties);
        return tray_->Visible();
    }
    void Post(UINT message, bool newerShell = false) {
        const LPARAM lParam = newerShell ? MAKELPARAM(message, 1) : static_cast<LPARAM>(message);
        const WPARAM wParam = newerShell ? static_cast<WPARAM>(MAKELPARAM(1270, 790)) : 1;
        PostMessageW(tray_->Handle(), kCallback, wParam, lParam);
        DispatchWaiting();
    }

    WinLocaleText locale_;
    HICON picture_ = LoadIconW(nullptr, reinterpret_cast<const wchar_t*>(IDI_INFORMATION));
    std::unique_ptr<TesselTrayLite> tray_ = std::make_unique<TesselTrayLite>(locale_);
    std::vector<std::string> events_;
};

TEST_F(TrayTest, AControlThatWasNeverShownHasNoWindow) {
    EXPECT_EQ(tray_->Handle(), nullptr);
    TrayProperties properties;
    properties.icon = ToTrayHandle(picture_);
    properties.visible = false;
    tray_->LoadProperties(properties);
    tray_->SetToolTipText(u"Milk");
    tray_->SetVisible(false);
    tray_->HideBalloon();
    EXPECT_EQ(tray_->Handle(), nullptr);
    EXPECT_EQ(tray_->Icon(), picture_);
}

TEST_F(TrayTest, MessagesOfOlderAndNewerShellsBecomeEvents) {
    if (!Show()) GTEST_SKIP() << "no notification area";
    for (const bool newerShell : {false, true}) {
        events_.clear();
        for (const UINT message : {512u, 513u, 514u, 1024u, 515u, 517u, 123u, 1025u, 1026u, 1028u, 1029u}) {
            Post(message, newerShell);
        }
        EXPECT_THAT(events_, ElementsAre("Click", "DblClick", "RightClick", "RightClick", "Click", "BalloonClick"))
            << (newerShell ? "newer" : "older");
    }
}

TEST_F(TrayTest, AHandlerMayDestroyTheControl) {
    if (!Show()) GTEST_SKIP() << "no notification area";
    const HWND window = tray_->Handle();
    tray_->onClick = [this] {
        tray_.reset();
        events_.emplace_back("gone");
    };
    PostMessageW(window, kCallback, 1, 514);
    PostMessageW(window, kCallback, 1, 1024);
    DispatchWaiting();
    EXPECT_THAT(events_, ElementsAre("gone"));
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(TrayTest, MessagesWhileAHandlerPumpsAreDropped) {
    if (!Show()) GTEST_SKIP() << "no notification area";
    tray_->onRightClick = [this] {
        events_.emplace_back("RightClick");
        Post(123);
        Post(514);
    };
    Post(517);
    EXPECT_THAT(events_, ElementsAre("RightClick"));
}

TEST_F(TrayTest, AHandlerNeverRunsInsideACallOfAnotherThread) {
    if (!Show()) GTEST_SKIP() << "no notification area";
    tray_->onClick = [this] { events_.emplace_back(InSendMessageEx(nullptr) == ISMEX_NOSEND ? "posted" : "sent"); };
    std::thread shell([window = tray_->Handle()] { SendNotifyMessageW(window, kCallback, 1, 514); });
    EXPECT_TRUE(WaitFor([this] { return !events_.empty(); }));
    shell.join();
    EXPECT_THAT(events_, ElementsAre("posted"));
}

TEST_F(TrayTest, ARefusedIconIsAddedOnceTheShellAcceptsIt) {
    if (!Show()) GTEST_SKIP() << "no notification area";
    tray_->SetVisible(false);
    // Its place is taken: the shell refuses a second icon with the same window and number.
    NOTIFYICONDATAW other{};
    other.cbSize = sizeof other;
    other.hWnd = tray_->Handle();
    other.uID = 1;
    other.uFlags = NIF_ICON;
    other.hIcon = picture_;
    ASSERT_TRUE(Shell_NotifyIconW(NIM_ADD, &other));
    tray_->SetVisible(true);
    EXPECT_FALSE(tray_->Visible());
    ASSERT_TRUE(Shell_NotifyIconW(NIM_DELETE, &other));
    EXPECT_TRUE(WaitFor([this] { return tray_->Visible(); }));
    EXPECT_FALSE(Shell_NotifyIconW(NIM_ADD, &other)) << "the control's icon is there";
}

TEST_F(TrayTest, TheEndOfTheControlRemovesTheIcon) {
    if (!Show()) GTEST_SKIP() << "no notification area";
    NOTIFYICONDATAW same{};
    same.cbSize = sizeof same;
    same.hWnd = tray_->Handle();
    same.uID = 1;
    EXPECT_TRUE(Shell_NotifyIconW(NIM_MODIFY, &same));
    tray_.reset();
    EXPECT_FALSE(Shell_NotifyIconW(NIM_MODIFY, &same));
}

/// Presses a mouse button `times` times on the icon and waits for the last of the shell's messages. A test's input can
/// get lost before it reaches the shell: then it is repeated.
bool PressOnIcon(HWND taskBar, const Listener& listener, bool right, int times) {
    RECT bar{};
    GetWindowRect(taskBar, &bar);
    const UINT up = right ? WM_RBUTTONUP : WM_LBUTTONUP;
    const UINT last = right ? WM_CONTEXTMENU : static_cast<UINT>(NIN_SELECT);
    // Presses of an earlier test in the same place, in this process or an earlier one, must not turn this one into a
    // double click.
    static ULONGLONG lastPress = GetTickCount64();
    WaitFor([] { return GetTickCount64() - lastPress > GetDoubleClickTime(); });
    constexpr int kAttempts = 5;
    for (int attempt = 0; attempt < kAttempts && !listener.Heard(up); ++attempt) {
        // The first icon is at the right end of the bar, a square of the bar's height.
        const int half = (bar.bottom - bar.top) / 2;
        SetCursorPos(bar.right - half, bar.bottom - half);
        std::vector<INPUT> inputs;
        for (int i = 0; i < times; ++i) {
            INPUT input{};
            input.type = INPUT_MOUSE;
            input.mi.dwFlags = right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN;
            inputs.push_back(input);
            input.mi.dwFlags = right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP;
            inputs.push_back(input);
        }
        SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
        lastPress = GetTickCount64();
        constexpr DWORD kAttemptMilliseconds = 3000;
        WaitFor([&] { return listener.Heard(last, times); }, kAttemptMilliseconds);
    }
    return listener.Heard(last, times);
}

TEST_F(TrayTest, ARealClickIsOneClick) {
    const HWND taskBar = Show() ? KnownTaskBar() : nullptr;
    if (taskBar == nullptr) GTEST_SKIP() << "no task bar with known places";
    const Listener listener(tray_->Handle());
    ASSERT_TRUE(PressOnIcon(taskBar, listener, false, 1)) << "button-up and selection did not both come";
    EXPECT_THAT(events_, ElementsAre("Click"));
}

TEST_F(TrayTest, ARealDoubleClickIsADoubleClickBetweenTwoClicks) {
    const HWND taskBar = Show() ? KnownTaskBar() : nullptr;
    if (taskBar == nullptr) GTEST_SKIP() << "no task bar with known places";
    // One of the two presses can get lost: then both are repeated.
    bool pressed = false;
    for (int attempt = 0; attempt < 3 && !pressed; ++attempt) {
        events_.clear();
        const Listener listener(tray_->Handle());
        pressed = PressOnIcon(taskBar, listener, false, 2);
    }
    ASSERT_TRUE(pressed) << "two button-ups and selections did not come";
    EXPECT_THAT(events_, ElementsAre("Click", "DblClick", "Click"));
}

TEST_F(TrayTest, ARealRightClickIsTwoEventsAsTheShellSendsTwo) {
    const HWND taskBar = Show() ? KnownTaskBar() : nullptr;
    if (taskBar == nullptr) GTEST_SKIP() << "no task bar with known places";
    const Listener listener(tray_->Handle());
    ASSERT_TRUE(PressOnIcon(taskBar, listener, true, 1)) << "button-up and context menu did not both come";
    EXPECT_THAT(events_, ElementsAre("RightClick", "RightClick"));
}

/// Whether a balloon with this text is on the screen; tool tips look the same from here.
bool IsBalloonShown(const std::wstring& wanted) {
    struct Search {
        const std::wstring& wanted;
        bool found = false;
    } search{wanted};
    const auto look = [](HWND window, LPARAM parameter) -> BOOL {
        auto& result = *reinterpret_cast<Search*>(parameter);
        wchar_t text[256] = L"";
        if (GetClassNameW(window, text, 256) == 0 || std::wstring(text) != L"tooltips_class32") return TRUE;
        if (!IsWindowVisible(window)) return TRUE;
        DWORD_PTR length = 0;
        text[0] = L'\0';
        SendMessageTimeoutW(window, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG, 1000, &length);
        if (result.wanted == text) result.found = true;
        return TRUE;
    };
    EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

TEST_F(TrayTest, ABalloonIsShownAndHidden) {
    if (!Show() || KnownTaskBar() == nullptr) GTEST_SKIP() << "no task bar with balloons of a known kind";
    tray_->ShowBalloon(u"You can click this icon.", u"Note minimized", 1, 0);
    EXPECT_EQ(GetWindowTextLengthW(tray_->Handle()), 0) << "the text is the shell's alone";
    EXPECT_TRUE(WaitFor([] { return IsBalloonShown(L"You can click this icon."); }));
    tray_->HideBalloon();
    EXPECT_TRUE(WaitFor([] { return !IsBalloonShown(L"You can click this icon."); }));
}

TEST_F(TrayTest, ABalloonHidesWhenItsTimeIsUp) {
    if (!Show() || KnownTaskBar() == nullptr) GTEST_SKIP() << "no task bar with balloons of a known kind";
    tray_->ShowBalloon(u"Only for a moment", u"Note minimized", 1, 5);
    EXPECT_TRUE(WaitFor([] { return IsBalloonShown(L"Only for a moment"); }));
    EXPECT_TRUE(WaitFor([] { return !IsBalloonShown(L"Only for a moment"); }));
}

}  // namespace
}  // namespace quillo
