#include <gtest/gtest.h>

#include "platform/app_icons.h"
#include "platform/disabled_windows.h"
#include "platform/dpi.h"
#include "platform/ui_timer.h"
#include "platform/win_user_notice.h"
#include "reminder_fixture.h"
#include "util/busy_flag.h"

namespace quillo::windows_tests {
namespace {

int EdgeOf(HICON icon) {
    ICONINFO info{};
    if (GetIconInfo(icon, &info) == 0) return 0;
    BITMAP bitmap{};
    GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return bitmap.bmWidth;
}

TEST(PlatformIcons, EachSizeIsItsOwnAndNoHandleIsShared) {
    for (const int edge : {16, 20, 24, 32, 40, 48}) {
        const IconHandle icon = LoadIconOfSize(101, edge);
        const IconHandle again = LoadIconOfSize(101, edge);
        EXPECT_EQ(EdgeOf(icon.Get()), edge);
        EXPECT_NE(icon.Get(), again.Get());
    }
}

TEST(PlatformIcons, AWindowHasTheIconsOfItsResolution) {
    PlainWindow window;
    WindowIcons icons;
    for (const int dpi : {96, 192}) {
        icons.GiveTo(window.Handle(), Scale(dpi));
        const auto small = reinterpret_cast<HICON>(SendMessageW(window.Handle(), WM_GETICON, ICON_SMALL, 0));
        const auto large = reinterpret_cast<HICON>(SendMessageW(window.Handle(), WM_GETICON, ICON_BIG, 0));
        EXPECT_EQ(EdgeOf(small), SmallIconEdge(Scale(dpi))) << dpi;
        EXPECT_EQ(EdgeOf(large), LargeIconEdge(Scale(dpi))) << dpi;
    }
    EXPECT_GT(SmallIconEdge(Scale(192)), SmallIconEdge(Scale(96)));
}

TEST(PlatformFrame, HasTheMonitorsResolution) {
    constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
    const Size client{400, 300};
    const Size at96 = WindowSizeFor(client, kStyle, WS_EX_DLGMODALFRAME, Scale(96));
    const Size at192 = WindowSizeFor(client, kStyle, WS_EX_DLGMODALFRAME, Scale(192));
    EXPECT_GT(at96.height, client.height);
    EXPECT_GT(at192.height - client.height, at96.height - client.height) << "a caption twice as high";
}

class PlatformNotice : public testing::Test {
  protected:
    /// Examines the message box that `ask` opens, and answers it with Cancel.
    template <typename Ask, typename Look>
    bool WhileAsking(Ask ask, Look look) {
        bool came = false;
        UiTimer answer([&] {
            HWND box = FindWindowW(L"#32770", L"Quillo");
            if (box == nullptr || IsWindowVisible(box) == 0) return;
            answer.Stop();
            came = true;
            look(box);
            PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
        });
        answer.Start(30);
        ask();
        return came;
    }

    BusyFlag busy_;
    WinUserNotice notice_{busy_};
    PlainWindow asker_;
    PlainWindow other_;
};

TEST_F(PlatformNotice, AMessageBoxIsOwnedByTheActiveWindowAndTopmost) {
    SetForegroundWindow(asker_.Handle());
    SetActiveWindow(asker_.Handle());
    ASSERT_EQ(GetActiveWindow(), asker_.Handle());
    const bool came = WhileAsking([&] { notice_.Warn(u"Look out."); },
                                  [&](HWND box) {
                                      EXPECT_EQ(GetWindow(box, GW_OWNER), asker_.Handle());
                                      // Wine ignores the flag that puts it above pinned notes.
                                      EXPECT_NE(kMessageBoxFlags & MB_TOPMOST, 0U);
                                      EXPECT_FALSE(IsWindowEnabled(asker_.Handle()));
                                      EXPECT_FALSE(IsWindowEnabled(other_.Handle()));
                                      EXPECT_TRUE(busy_.IsSet());
                                  });
    EXPECT_TRUE(came);
    EXPECT_TRUE(IsWindowEnabled(asker_.Handle()));
    EXPECT_TRUE(IsWindowEnabled(other_.Handle()));
    EXPECT_EQ(GetActiveWindow(), asker_.Handle()) << "no other window, and no other program, came forward";
    EXPECT_FALSE(busy_.IsSet());
}

TEST_F(PlatformNotice, AHiddenWindowOwnsNoBox) {
    SetActiveWindow(asker_.Handle());
    ShowWindow(asker_.Handle(), SW_HIDE);
    ShowWindow(other_.Handle(), SW_HIDE);
    EXPECT_EQ(MessageBoxOwner(), nullptr);
}

TEST(PlatformDisabledWindows, ScopesNestAndKeepDisabledWindowsDisabled) {
    const PlainWindow first;
    const PlainWindow second;
    EnableWindow(second.Handle(), FALSE);
    {
        const DisabledWindows outer;
        EXPECT_FALSE(IsWindowEnabled(first.Handle()));
        const PlainWindow third;
        EXPECT_TRUE(IsWindowEnabled(third.Handle()));
        {
            const DisabledWindows inner;
            EXPECT_FALSE(IsWindowEnabled(third.Handle()));
        }
        EXPECT_TRUE(IsWindowEnabled(third.Handle()));
        EXPECT_FALSE(IsWindowEnabled(first.Handle()));
        const DisabledWindows sparing(third.Handle());
        EXPECT_TRUE(IsWindowEnabled(third.Handle()));
    }
    EXPECT_TRUE(IsWindowEnabled(first.Handle()));
    EXPECT_FALSE(IsWindowEnabled(second.Handle()));
}

}  // namespace
}  // namespace quillo::windows_tests
