#include "reminders/reminder_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/dpi.h"
#include "platform/monitors.h"
#include "reminder_fixture.h"

namespace quillo {
namespace {

using windows_tests::KeysDown;
using windows_tests::PixelOf;
using windows_tests::PumpUntil;
using windows_tests::ReminderWorld;
using Calls = std::vector<std::string>;

const Calls kDismissed = {"popup", "activate", "alert closing"};
const AlertColors kColors{ColorWord::FromRgb(0xFE, 0xFD, 0xD7), ColorWord::FromRgb(0xFE, 0xCF, 0x38), ColorWord{0}};

class ReminderFormTest : public testing::Test {
  protected:
    ReminderFormTest() { world_.settings.reminder = u"C:\\ding.wma"; }

    void Open() { ASSERT_TRUE(form_.Initialize(u"water the ferns", kColors)); }
    [[nodiscard]] int Px(int pixels) const { return SystemScale().Px(pixels); }
    void Send(UINT message, Point at) const {
        SendMessageW(form_.Handle(), message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0, MAKELPARAM(at.x, at.y));
    }
    void Click(Point at) const {
        Send(WM_LBUTTONDOWN, at);
        Send(WM_LBUTTONUP, at);
    }
    void Key(int key) const { SendMessageW(form_.Handle(), WM_KEYDOWN, static_cast<WPARAM>(key), 1); }
    [[nodiscard]] static Rect PlaceOf(const ReminderForm& form) {
        RECT window{};
        GetWindowRect(form.Handle(), &window);
        return Rect{window.left, window.top, window.right - window.left, window.bottom - window.top};
    }
    [[nodiscard]] std::ptrdiff_t TimesPlayed() const {
        const auto& commands = world_.sound.commands;
        return std::count(commands.begin(), commands.end(), u"play quillo from 0");
    }

    ReminderWorld world_;
    ReminderForm form_{&world_.owner, world_.forAlerts};
};

TEST_F(ReminderFormTest, IsTopmostInTheWorkAreaWithTheNotesText) {
    Open();
    EXPECT_NE(GetWindowLongPtrW(form_.Handle(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(GetWindow(form_.Handle(), GW_OWNER), nullptr);
    EXPECT_NE(IsWindowVisible(form_.Handle()), FALSE);
    EXPECT_EQ(WindowText(form_.Handle()), u"water the ferns");
    const Rect place = PlaceOf(form_);
    EXPECT_EQ(place.width, Px(320));
    EXPECT_EQ(place.height, Px(180));
    EXPECT_TRUE(WorkAreas().front().Contains(Point{place.left, place.top}));
    EXPECT_TRUE(WorkAreas().front().Contains(Point{place.Right() - 1, place.Bottom() - 1}));
    EXPECT_EQ(world_.owner.calls, Calls{});
}

TEST_F(ReminderFormTest, IsPaintedInTheNotesColors) {
    Open();
    windows_tests::PaintNow(form_.Handle());
    EXPECT_EQ(PixelOf(form_.Handle(), Point{Px(160), Px(10)}), RGB(0xFE, 0xCF, 0x38));
    EXPECT_EQ(PixelOf(form_.Handle(), Point{Px(8), Px(100)}), RGB(0xFE, 0xFD, 0xD7));
    const COLORREF edge = PixelOf(form_.Handle(), Point{0, Px(100)});
    EXPECT_LT(GetGValue(edge), 0xCF) << "a stronger edge than the note's";
}

TEST_F(ReminderFormTest, TheTextIsDrawnAndEndsInsideItsArea) {
    ASSERT_TRUE(form_.Initialize(std::u16string(5000, u'm'), kColors));
    windows_tests::PaintNow(form_.Handle());
    const auto inkedRow = [this](int y) {
        for (int x = Px(8); x < Px(312); ++x) {
            if (PixelOf(form_.Handle(), Point{x, y}) != RGB(0xFE, 0xFD, 0xD7)) return true;
        }
        return false;
    };
    int inked = 0;
    for (int y = Px(45); y < Px(152); ++y) inked += inkedRow(y) ? 1 : 0;
    EXPECT_GT(inked, Px(30));
    for (int y = Px(153); y < Px(157); ++y) EXPECT_FALSE(inkedRow(y)) << "row " << y << ", between text and hint";
    EXPECT_EQ(PixelOf(form_.Handle(), Point{Px(8), Px(100)}), RGB(0xFE, 0xFD, 0xD7));
    EXPECT_EQ(PixelOf(form_.Handle(), Point{Px(311), Px(100)}), RGB(0xFE, 0xFD, 0xD7));
}

TEST_F(ReminderFormTest, AClickDismissesIt) {
    Open();
    Click(Point{Px(160), Px(100)});
    EXPECT_EQ(world_.owner.calls, kDismissed);
    EXPECT_EQ(form_.Handle(), nullptr);
}

TEST_F(ReminderFormTest, AClickAtTheRightEndOfTheStripDismissesIt) {
    Open();
    Click(Point{Px(320) - Px(40), Px(10)});
    EXPECT_EQ(world_.owner.calls, kDismissed);
}

TEST_F(ReminderFormTest, TheStripDragsAndDoesNotDismiss) {
    Open();
    PostMessageW(form_.Handle(), WM_LBUTTONUP, 0, 0);  // ends the drag that the press begins
    Send(WM_LBUTTONDOWN, Point{Px(320) - Px(40) - 1, Px(35) - 1});
    windows_tests::PumpWaiting();
    EXPECT_EQ(world_.owner.calls, Calls{});
    EXPECT_NE(form_.Handle(), nullptr);
}

TEST_F(ReminderFormTest, APressThatEndsOutsideIsNotAClick) {
    Open();
    Send(WM_LBUTTONDOWN, Point{Px(160), Px(100)});
    Send(WM_LBUTTONUP, Point{-5, Px(100)});
    EXPECT_EQ(world_.owner.calls, Calls{});
    Send(WM_LBUTTONUP, Point{Px(160), Px(100)});
    EXPECT_EQ(world_.owner.calls, Calls{}) << "a release without a press";
}

TEST_F(ReminderFormTest, EscDismissesWithAnyModifier) {
    Open();
    const KeysDown keys({VK_SHIFT});
    Key(VK_ESCAPE);
    EXPECT_EQ(world_.owner.calls, kDismissed);
}

TEST_F(ReminderFormTest, OnlyControlWDismisses) {
    Open();
    Key('W');
    Key(VK_RETURN);
    Key(VK_SPACE);
    {
        const KeysDown altGr({VK_CONTROL, VK_RMENU});
        Key('W');
    }
    EXPECT_EQ(world_.owner.calls, Calls{});
    const KeysDown control({VK_CONTROL});
    Key('W');
    EXPECT_EQ(world_.owner.calls, kDismissed);
}

TEST_F(ReminderFormTest, ClosingItFromOutsideShowsTheNoteToo) {
    Open();
    SendMessageW(form_.Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(world_.owner.calls, kDismissed);
}

TEST_F(ReminderFormTest, UnloadingOnlyNotifiesTheNote) {
    Open();
    form_.Unload();
    EXPECT_EQ(world_.owner.calls, Calls{"alert closing"});
}

TEST_F(ReminderFormTest, TheSoundPlaysAtOnceAndRepeatsUntilTheEnd) {
    Open();
    EXPECT_EQ(TimesPlayed(), 1);
    EXPECT_EQ(world_.sound.commands.at(2), u"open \"C:\\ding.wma\" alias quillo");
    constexpr DWORD kLongEnough = 30'000;
    EXPECT_TRUE(PumpUntil([this] { return TimesPlayed() == 2; }, kLongEnough));
    form_.Unload();
    EXPECT_EQ(TimesPlayed(), 2);
}

TEST_F(ReminderFormTest, ALongSoundStopsWithTheLastAlert) {
    ReminderForm second(nullptr, world_.forAlerts);
    Open();
    ASSERT_TRUE(second.Initialize(u"two", kColors));
    world_.sound.commands.clear();
    second.Unload();
    EXPECT_TRUE(world_.sound.commands.empty()) << "the other alert still sounds";
    form_.Unload();
    ASSERT_FALSE(world_.sound.commands.empty());
    EXPECT_EQ(world_.sound.commands.front(), u"stop quillo");
    EXPECT_EQ(world_.sound.waves.back(), u"") << "nor does a wave file go on";
}

TEST_F(ReminderFormTest, AnEmptySettingIsSilence) {
    world_.settings.reminder = u"  ";
    Open();
    EXPECT_TRUE(world_.sound.commands.empty());
    EXPECT_NE(form_.Handle(), nullptr);
}

TEST_F(ReminderFormTest, EachAlertIsVisibleAndAFreePlaceIsUsedAgain) {
    ReminderForm second(nullptr, world_.forAlerts);
    ReminderForm third(nullptr, world_.forAlerts);
    Open();
    ASSERT_TRUE(second.Initialize(u"two", kColors));
    const Rect first = PlaceOf(form_);
    EXPECT_NE(PlaceOf(second).left, first.left);
    EXPECT_NE(PlaceOf(second).top, first.top);
    form_.Unload();
    ASSERT_TRUE(third.Initialize(u"three", kColors));
    EXPECT_EQ(PlaceOf(third), first);
}

TEST_F(ReminderFormTest, WaitingMessagesRunBeforeItReturns) {
    bool ran = false;
    UiTimer timer([&ran] { ran = true; });
    timer.Start(1);
    // Waits without dispatching until the tick is due.
    MSG message{};
    while (PeekMessageW(&message, nullptr, WM_TIMER, WM_TIMER, PM_NOREMOVE) == 0) WaitMessage();
    Open();
    EXPECT_TRUE(ran);
}

TEST_F(ReminderFormTest, TheQuitMessageIsNotLost) {
    PostQuitMessage(7);
    Open();
    MSG message{};
    ASSERT_NE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), FALSE);
    EXPECT_EQ(message.wParam, 7U);
}

TEST_F(ReminderFormTest, FollowsTheResolutionOfItsMonitor) {
    Open();
    const RECT place{50, 60, 50 + 480, 60 + 270};
    SendMessageW(form_.Handle(), WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&place));
    EXPECT_EQ(PlaceOf(form_), (Rect{50, 60, 480, 270}));
    PostMessageW(form_.Handle(), WM_LBUTTONUP, 0, 0);
    Send(WM_LBUTTONDOWN, Point{480 - 61, 51});
    EXPECT_NE(form_.Handle(), nullptr) << "the strip is half as large again";
}

}  // namespace
}  // namespace quillo
