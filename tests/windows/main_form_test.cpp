#include "main_form_fixture.h"
#include "platform/monitors.h"

// After windows.h.
#include <shellapi.h>

namespace quillo::windows_tests {
namespace {

using Sounds = std::vector<SystemSound>;

// Showing and hiding.

TEST_F(MainFormWindow, IsHiddenUntilItSlidesIntoTheCornerOfTheWorkArea) {
    EXPECT_FALSE(form_.IsShowing());
    form_.SlideForm(true);
    EXPECT_TRUE(form_.IsShowing());
    RECT place{};
    GetWindowRect(form_.Handle(), &place);
    const Rect area = WorkAreas().front();
    EXPECT_EQ(place.right, area.Right());
    EXPECT_EQ(place.bottom, area.Bottom());
    EXPECT_EQ((place.right - place.left) * 180, (place.bottom - place.top) * 300);
    EXPECT_NE(GetWindowLongPtrW(form_.Handle(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(test_.notice.sounds, Sounds{SystemSound::RestoreUp});
    form_.SlideForm(false);
    EXPECT_FALSE(form_.IsShowing());
    EXPECT_EQ(test_.notice.sounds, (Sounds{SystemSound::RestoreUp, SystemSound::RestoreDown}));
}

TEST_F(MainFormWindow, SlidingToWhereItIsDoesNothing) {
    form_.SlideForm(false);
    EXPECT_TRUE(test_.notice.sounds.empty());
    Show();
    form_.SlideForm(true);
    EXPECT_TRUE(test_.notice.sounds.empty());
}

TEST_F(MainFormWindow, AnimatedItEndsWhereItEndsWithoutAnimation) {
    test_.program.settings.animation = true;
    form_.SlideForm(true);
    EXPECT_TRUE(form_.IsShowing());
    BYTE alpha = 0;
    DWORD flags = 0;
    ASSERT_TRUE(GetLayeredWindowAttributes(form_.Handle(), nullptr, &alpha, &flags));
    EXPECT_EQ(alpha, 255);
    form_.SlideForm(false);
    EXPECT_FALSE(form_.IsShowing());
}

TEST_F(MainFormWindow, WhereWindowsCannotBeTranslucentItSlides) {
    form_.Unload();
    test_.program.os.windows2000OrLater = false;
    test_.program.settings.animation = true;
    ASSERT_TRUE(form_.Load());
    EXPECT_EQ(GetWindowLongPtrW(form_.Handle(), GWL_EXSTYLE) & WS_EX_LAYERED, 0);
    form_.SlideForm(true);
    RECT place{};
    GetWindowRect(form_.Handle(), &place);
    EXPECT_EQ(place.bottom, WorkAreas().front().Bottom());
    form_.SlideForm(false);
    EXPECT_FALSE(form_.IsShowing());
}

// The icon.

TEST_F(MainFormWindow, AClickOnTheIconOpensItAndASecondMakesANoteAndClosesIt) {
    SendToIcon(WM_LBUTTONUP);
    EXPECT_TRUE(form_.IsShowing());
    EXPECT_EQ(Heard(), "");
    SendToIcon(WM_LBUTTONUP);
    EXPECT_FALSE(form_.IsShowing());
    EXPECT_EQ(Heard(), "new ");
}

TEST_F(MainFormWindow, ARightClickOnTheIconSurfacesTheNotes) {
    AddNote(u"A");
    EXPECT_FALSE(test_.views.View(0).IsVisible());
    SendToIcon(WM_RBUTTONUP);
    EXPECT_TRUE(test_.views.View(0).IsVisible());
    EXPECT_FALSE(form_.IsShowing());
}

TEST_F(MainFormWindow, WhileTheProgramIsBusyTheIconIgnoresClicks) {
    AddNote(u"A");
    const auto ignoresClicks = [this] {
        SendToIcon(WM_LBUTTONUP);
        SendToIcon(WM_RBUTTONUP);
        return !form_.IsShowing() && !test_.views.View(0).IsVisible();
    };
    test_.program.startingUp = true;
    EXPECT_TRUE(ignoresClicks());
    test_.program.startingUp = false;
    test_.program.quitting = true;
    EXPECT_TRUE(ignoresClicks());
    test_.program.quitting = false;
    {
        const BusyFlag::Scope dialog(dialogs_);
        EXPECT_TRUE(ignoresClicks());
    }
    EXPECT_FALSE(ignoresClicks());
}

TEST_F(MainFormWindow, ANewTaskBarGetsTheIcons) {
    AddNote(u"A");
    test_.program.openNotes.Find(u"A")->MinimizeToTray();
    (void)test_.views.View(0).TakeCalls();
    NOTIFYICONDATAW icon{};
    icon.cbSize = sizeof icon;
    icon.hWnd = TrayWindow();
    icon.uID = 1;
    if (!Shell_NotifyIconW(NIM_DELETE, &icon)) GTEST_SKIP() << "no notification area";
    Send(RegisterWindowMessageW(L"TaskbarCreated"));
    EXPECT_TRUE(Shell_NotifyIconW(NIM_MODIFY, &icon));
    EXPECT_EQ(test_.views.View(0).TakeCalls(), std::vector<std::string>{"RecreateIcon"});
}

TEST_F(MainFormWindow, UnloadingRemovesTheIconAndTheHotkeys) {
    NOTIFYICONDATAW icon{};
    icon.cbSize = sizeof icon;
    icon.hWnd = TrayWindow();
    icon.uID = 1;
    form_.Unload();
    EXPECT_FALSE(Shell_NotifyIconW(NIM_MODIFY, &icon));
    EXPECT_TRUE(IsFree(VK_F23));
    EXPECT_TRUE(IsFree(VK_F24));
}

/// A registry that reports a look at the size of the shell's icons.
class WatchedRegistry : public FakeRegistryApi {
  public:
    std::function<void()> onIconSize;
    [[nodiscard]] std::optional<std::u16string> QueryText(Key key, std::u16string_view name) override {
        if (name == u"Shell Icon Size") onIconSize();
        return FakeRegistryApi::QueryText(key, name);
    }
};

TEST_F(MainFormTest, TheHotkeysWorkBeforeTheRegistryIsRead) {
    WatchedRegistry registry;
    int reads = 0;
    registry.onIconSize = [&] {
        ++reads;
        EXPECT_FALSE(IsFree(VK_F23));
        EXPECT_FALSE(IsFree(VK_F24));
    };
    MainForm form(MainFormServices{test_.program, registry, test_.shell, test_.locale, dialogs_}, ServicesOfMenu(),
                  kTick);
    ASSERT_TRUE(form.Load());
    EXPECT_EQ(reads, 1);
}

TEST_F(MainFormTest, TheIconWaitsUntilItIsAskedFor) {
    ASSERT_TRUE(form_.Load());
    EXPECT_EQ(TrayWindow(), nullptr);
    Send(WM_DPICHANGED);
    EXPECT_EQ(TrayWindow(), nullptr) << "another picture adds no icon";
    form_.ShowTrayIcon();
    EXPECT_NE(TrayWindow(), nullptr);
}

TEST_F(MainFormTest, ABalloonNeedsTheIconAtOnce) {
    ASSERT_TRUE(form_.Load());
    form_.ShowBalloon(u"title", u"text", BalloonIcon::Information);
    EXPECT_NE(TrayWindow(), nullptr);
}

TEST_F(MainFormTest, TheMenuNeedsTheIconAtOnce) {
    ASSERT_TRUE(form_.Load());
    form_.SlideForm(true);
    EXPECT_NE(TrayWindow(), nullptr);
}

TEST_F(MainFormTest, ANewTaskBarGetsTheIconAlsoWhenItWaits) {
    ASSERT_TRUE(form_.Load());
    Send(RegisterWindowMessageW(L"TaskbarCreated"));
    EXPECT_NE(TrayWindow(), nullptr);
}

TEST_F(MainFormWindow, TheMonitorsAreAskedForAgainWhenTheSystemSaysThatTheyChanged) {
    monitorQuestions_ = 0;
    Show();
    form_.SlideForm(false);
    Show();
    EXPECT_EQ(monitorQuestions_, 1);
    for (const UINT change : {WM_DISPLAYCHANGE, WM_SETTINGCHANGE, WM_DPICHANGED}) {
        monitorQuestions_ = 0;
        form_.SlideForm(false);
        Send(change);
        Show();
        EXPECT_EQ(monitorQuestions_, 1) << change;
    }
}

// Hotkeys.

TEST_F(MainFormWindow, AHotkeyThatIsTakenIsRemembered) {
    EXPECT_EQ(form_.TakenHotKeys(), (std::array<int, 2>{}));
    constexpr int kOthers = 7;
    ASSERT_TRUE(RegisterHotKey(nullptr, kOthers, MOD_WIN, VK_F22));
    test_.program.settings.showNotesHotkey = VK_F22;
    form_.RegisterHotKeys();
    EXPECT_EQ(form_.TakenHotKeys(), (std::array<int, 2>{0, VK_F22}));
    UnregisterHotKey(nullptr, kOthers);
    form_.RegisterHotKeys();
    EXPECT_EQ(form_.TakenHotKeys(), (std::array<int, 2>{}));
}

TEST_F(MainFormWindow, TheHotkeysAreThoseOfTheSettingsWithTheWindowsKey) {
    EXPECT_FALSE(IsFree(VK_F23));
    EXPECT_FALSE(IsFree(VK_F24));
    test_.program.settings.newNoteHotkey = VK_F22;
    EXPECT_FALSE(IsFree(VK_F23)) << "the old one works until the next registration";
    form_.RegisterHotKeys();
    EXPECT_TRUE(IsFree(VK_F23));
    EXPECT_FALSE(IsFree(VK_F22));
    EXPECT_FALSE(IsFree(VK_F24));
}

TEST_F(MainFormWindow, AHotkeyThatIsTakenIsSkippedSilently) {
    constexpr int kTaken = 98;
    ASSERT_TRUE(RegisterHotKey(nullptr, kTaken, MOD_WIN, VK_F22));
    test_.program.settings.newNoteHotkey = VK_F22;
    form_.RegisterHotKeys();
    EXPECT_FALSE(IsFree(VK_F24)) << "the other works";
    EXPECT_TRUE(test_.notice.fails.empty());
    UnregisterHotKey(nullptr, kTaken);
}

TEST_F(MainFormWindow, HotkeyOneMakesANoteTwoSurfacesThemAndNoOtherDoesAnything) {
    AddNote(u"A");
    Send(WM_HOTKEY, 3);
    EXPECT_EQ(Heard(), "");
    EXPECT_FALSE(test_.views.View(0).IsVisible());
    Send(WM_HOTKEY, 1);
    EXPECT_EQ(Heard(), "new ");
    Send(WM_HOTKEY, 2);
    EXPECT_TRUE(test_.views.View(0).IsVisible());
    test_.program.quitting = true;
    Send(WM_HOTKEY, 1);
    EXPECT_EQ(Heard(), "") << "the end has begun";
}

// The rest.

TEST_F(MainFormWindow, EveryFifthTickOfTheBackupTimerSaves) {
    int others = 0;
    UiTimer timer([&] { ++others; });
    timer.Start(kTick);
    EXPECT_TRUE(PumpUntil([&] { return backups_ == 1; }));
    EXPECT_GE(others, 3) << "not at once";
    EXPECT_TRUE(PumpUntil([&] { return backups_ == 2; }));
    form_.Unload();
    others = 0;
    EXPECT_TRUE(PumpUntil([&] { return others > 10; }));
    EXPECT_EQ(backups_, 2);
    static_assert(kBackupInterval == 60'000, "every five minutes in all");
}

TEST_F(MainFormWindow, AnotherDisplayChangesNothing) {
    Send(WM_DISPLAYCHANGE, 32, MAKELPARAM(1024, 768));
    EXPECT_EQ(Heard(), "");
    EXPECT_FALSE(form_.IsShowing());
}

}  // namespace
}  // namespace quillo::windows_tests
