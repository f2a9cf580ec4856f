#include "reminders/set_reminder_form.h"

#include <gtest/gtest.h>

// After windows.h.
#include <commctrl.h>

#include <string>
#include <vector>

#include "app/base/os_facts.h"
#include "app/base/settings.h"
#include "platform/gdi_scope.h"
#include "platform/message_loop.h"
#include "platform/wide.h"
#include "reminder_fixture.h"
#include "reminders/reminder_phrase.h"

namespace quillo {
namespace {

using windows_tests::ReminderWorld;
using Calls = std::vector<std::string>;
using Control = ReminderControl;

constexpr DaySerial kExisting{46347.375};  // 21 November 2026, 09:00

class SetReminderFormTest : public testing::Test {
  protected:
    void Open(DaySerial existing = kNoReminder) {
        ASSERT_TRUE(form_.Initialize(world_.noteWindow.Handle(), existing));
        world_.loop.RunPending();
    }
    [[nodiscard]] HWND Of(ReminderControl control) const { return form_.ControlWindow(control); }
    [[nodiscard]] std::u16string Text(ReminderControl control) const { return WindowText(Of(control)); }
    [[nodiscard]] bool IsShown(ReminderControl control) const { return IsWindowVisible(Of(control)) != 0; }
    void Type(const std::u16string& phrase) { SetWindowTextW(Of(Control::ReminderBox), Wide(phrase)); }
    void Press(ReminderControl button) { SendMessageW(Of(button), BM_CLICK, 0, 0); }
    /// Delivered as the message loop does, to the control that has the focus.
    void Key(HWND to, int key) {
        PostMessageW(to, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        world_.loop.RunPending();
    }
    [[nodiscard]] std::pair<DWORD, DWORD> Selection() const {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageW(Of(Control::ReminderBox), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        return {start, end};
    }
    [[nodiscard]] int Height() const {
        RECT window{};
        GetWindowRect(form_.Handle(), &window);
        return window.bottom - window.top;
    }
    void SetDpi(int dpi) {
        const RECT place{100, 100, 500, 400};
        SendMessageW(form_.Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
    }
    /// No part of a label's text is outside it.
    void ExpectUncut(ReminderControl control, int dpi) const {
        RECT place{};
        GetClientRect(Of(control), &place);
        const WindowDcScope dc(Of(control));
        const SelectScope font(dc.Dc(), reinterpret_cast<HFONT>(SendMessageW(Of(control), WM_GETFONT, 0, 0)));
        RECT needed{0, 0, place.right, 0};
        const std::u16string text = Text(control);
        DrawTextW(dc.Dc(), WideData(text), static_cast<int>(text.size()), &needed,
                  DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
        EXPECT_LE(needed.right, place.right) << "control " << static_cast<int>(control) << " at " << dpi;
        EXPECT_LE(needed.bottom, place.bottom) << "control " << static_cast<int>(control) << " at " << dpi;
    }

    ReminderWorld world_;
    SetReminderForm form_{&world_.owner, world_.forDialogs};
};

TEST_F(SetReminderFormTest, ShowsEveryCaptionAndTheExamplesOfNow) {
    Open();
    EXPECT_EQ(WindowText(form_.Handle()), kReminderDialogCaption);
    for (const Control control :
         {Control::HideNoteCheck, Control::HeadingLabel, Control::InstructionLabel, Control::ExamplesLabel,
          Control::FirstExampleLabel, Control::OKButton, Control::CancelButton, Control::CancelHeadingLabel,
          Control::CancelExplanationLabel}) {
        EXPECT_EQ(Text(control), TextOf(control).caption);
    }
    EXPECT_EQ(Text(Control::ReminderBox), u"in 15 minutes");
    EXPECT_EQ(Text(Control::TwentyMinutesLabel), u"\u2022   9:50:00 AM");
    EXPECT_EQ(Text(Control::TomorrowLabel), u"\u2022   11/22/2026 9:30:00 AM");
    EXPECT_FALSE(IsShown(Control::MessageLabel));
    EXPECT_FALSE(IsShown(Control::CancelHeadingLabel));
    EXPECT_TRUE(IsShown(Control::ReminderBox));
}

TEST_F(SetReminderFormTest, ThePhraseIsSelectedAndHasMargins) {
    Open();
    EXPECT_EQ(Selection(), (std::pair<DWORD, DWORD>{0, 13}));
    const LRESULT margins = SendMessageW(Of(Control::ReminderBox), EM_GETMARGINS, 0, 0);
    EXPECT_GE(LOWORD(margins), 3);
    EXPECT_EQ(LOWORD(margins), HIWORD(margins));
    SendMessageW(Of(Control::ReminderBox), EM_SETSEL, 2, 2);
    SetFocus(Of(Control::OKButton));
    SetFocus(Of(Control::ReminderBox));
    EXPECT_EQ(Selection(), (std::pair<DWORD, DWORD>{0, 13})) << "whenever it gets the focus";
}

TEST_F(SetReminderFormTest, IsTopmostAndOwnedByTheNote) {
    Open();
    EXPECT_NE(GetWindowLongPtrW(form_.Handle(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(GetWindow(form_.Handle(), GW_OWNER), world_.noteWindow.Handle());
    EXPECT_NE(IsWindowEnabled(world_.noteWindow.Handle()), FALSE) << "not modal";
}

/// The tool tips of the dialog: the first ones of this thread, because they have no owner.
HWND TipsOfDialog() {
    HWND tips = nullptr;
    do {
        tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr);
    } while (tips != nullptr && GetWindowThreadProcessId(tips, nullptr) != GetCurrentThreadId());
    return tips;
}

TEST_F(SetReminderFormTest, FourControlsHaveToolTips) {
    Open();
    HWND tips = TipsOfDialog();
    ASSERT_NE(tips, nullptr);
    EXPECT_EQ(SendMessageW(tips, TTM_GETTOOLCOUNT, 0, 0), 4);
    EXPECT_EQ(GetWindow(tips, GW_OWNER), nullptr) << "the dialog can stop being topmost";
}

TEST_F(SetReminderFormTest, TheToolTipsHaveTheSizeOfTheDialog) {
    Open();
    HWND tips = TipsOfDialog();
    ASSERT_NE(tips, nullptr);
    const auto fontHeight = [tips] {
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(tips, WM_GETFONT, 0, 0)), sizeof font, &font);
        return -font.lfHeight;
    };
    const auto widest = [tips] { return SendMessageW(tips, TTM_GETMAXTIPWIDTH, 0, 0); };
    SetDpi(96);
    ASSERT_EQ(form_.DialogScale().Dpi(), 96);
    const LONG height = fontHeight();
    const LRESULT width = widest();
    ASSERT_GT(height, 0);
    SetDpi(144);
    ASSERT_EQ(form_.DialogScale().Dpi(), 144);
    EXPECT_NEAR(fontHeight(), height * 1.5, 1);
    EXPECT_EQ(widest(), width * 3 / 2);
}

TEST_F(SetReminderFormTest, EnterSetsTheReminderAndCloses) {
    Open();
    Type(u"in 2 hours");
    Key(Of(Control::ReminderBox), VK_RETURN);
    EXPECT_EQ(world_.owner.calls, (Calls{"set", "dialog closing"}));
    EXPECT_EQ(world_.owner.when, ToDaySerial({2026, 11, 21, 11, 30, 0}));
    EXPECT_EQ(form_.Handle(), nullptr);
}

TEST_F(SetReminderFormTest, EscClosesWithoutChange) {
    Open(kExisting);
    Key(Of(Control::ReminderBox), VK_ESCAPE);
    EXPECT_EQ(world_.owner.calls, Calls{"dialog closing"});
    EXPECT_EQ(form_.Handle(), nullptr);
}

TEST_F(SetReminderFormTest, EscOnTheCancelPanelKeepsTheReminder) {
    Open(kExisting);
    Press(Control::CancelButton);
    Key(Of(Control::OKButton), VK_ESCAPE);
    EXPECT_EQ(world_.owner.calls, Calls{"dialog closing"});
}

TEST_F(SetReminderFormTest, TabMovesInReadingOrder) {
    Open();
    SetFocus(Of(Control::ReminderBox));
    for (const Control next :
         {Control::HideNoteCheck, Control::OKButton, Control::CancelButton, Control::ReminderBox}) {
        Key(GetFocus(), VK_TAB);
        EXPECT_EQ(GetFocus(), Of(next)) << static_cast<int>(next);
    }
}

TEST_F(SetReminderFormTest, TheMessageGrowsTheFormOnce) {
    Open();
    const int before = Height();
    Type(u"whenever");
    Press(Control::OKButton);
    EXPECT_TRUE(IsShown(Control::MessageLabel));
    EXPECT_EQ(Text(Control::MessageLabel), kPhraseUnknownMessage);
    EXPECT_EQ(Selection(), (std::pair<DWORD, DWORD>{0, 8}));
    EXPECT_EQ(world_.notice.sounds, std::vector<SystemSound>{SystemSound::Asterisk});
    const int grown = Height();
    EXPECT_GT(grown, before);
    Type(u"in ten minutes");
    Press(Control::OKButton);
    EXPECT_EQ(Text(Control::MessageLabel), kPhraseFormatMessage);
    EXPECT_EQ(Height(), grown);
    EXPECT_EQ(world_.owner.calls, Calls{});
}

TEST_F(SetReminderFormTest, AGrownFormStaysOnTheScreen) {
    Open();
    SetWindowPos(form_.Handle(), nullptr, 100, GetSystemMetrics(SM_CYSCREEN) - Height(), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
    Type(u"whenever");
    Press(Control::OKButton);
    RECT window{};
    GetWindowRect(form_.Handle(), &window);
    EXPECT_LE(window.bottom, GetSystemMetrics(SM_CYSCREEN));
}

TEST_F(SetReminderFormTest, AnExistingReminderIsKeptOrCanceled) {
    Open(kExisting);
    EXPECT_EQ(Text(Control::ReminderBox), u"11/21/2026 9:00:00 AM");
    Press(Control::CancelButton);
    EXPECT_FALSE(IsShown(Control::ReminderBox));
    EXPECT_FALSE(IsShown(Control::HideNoteCheck));
    EXPECT_TRUE(IsShown(Control::CancelHeadingLabel));
    EXPECT_EQ(Text(Control::ActiveReminderLabel), u"11/21/2026 9:00:00 AM");
    EXPECT_EQ(Text(Control::OKButton), kKeepReminderCaption);
    EXPECT_EQ(Text(Control::MessageLabel), kKeepOrCancelHint);
    EXPECT_FALSE(IsShown(Control::MessageLabel)) << "only a message brings it into view";
    EXPECT_EQ(world_.owner.calls, Calls{});
    Press(Control::CancelButton);
    EXPECT_EQ(world_.owner.calls, (Calls{"cancel", "dialog closing"}));
}

TEST_F(SetReminderFormTest, KeepChangesNothing) {
    Open(kExisting);
    Press(Control::CancelButton);
    Press(Control::OKButton);
    EXPECT_EQ(world_.owner.calls, Calls{"dialog closing"});
}

TEST_F(SetReminderFormTest, ThePreviewFollowsTheTyping) {
    Open();
    EXPECT_EQ(Text(Control::PreviewLabel), u"Saturday, 11/21/2026, 9:45:00 AM");
    Type(u"in 1 da");
    EXPECT_EQ(Text(Control::PreviewLabel), u"");
    Type(u"in 1 day");
    EXPECT_EQ(Text(Control::PreviewLabel), u"Sunday, 11/22/2026, 9:30:00 AM");
    Type(u"whenever");
    Press(Control::OKButton);
    Type(u"in 1 day");
    EXPECT_EQ(Text(Control::PreviewLabel), u"") << "never where a message is";
}

TEST_F(SetReminderFormTest, ThePreviewKeepsUpWithTheClock) {
    Open();
    world_.clock.now = ToDaySerial({2026, 11, 21, 10, 0, 0});
    EXPECT_TRUE(windows_tests::PumpUntil(
        [this] { return Text(Control::PreviewLabel) == u"Saturday, 11/21/2026, 10:15:00 AM"; }));
}

TEST_F(SetReminderFormTest, TheNoteHidesWhenAsked) {
    Open();
    SendMessageW(Of(Control::HideNoteCheck), BM_SETCHECK, BST_CHECKED, 0);
    Press(Control::OKButton);
    EXPECT_EQ(world_.owner.calls, (Calls{"set", "hide", "dialog closing"}));
}

TEST_F(SetReminderFormTest, TheNoteMinimizesWithABalloonWhereThatIsTheSetting) {
    world_.settings.minimizeToTray = true;
    world_.os.windows2000OrLater = true;
    Open();
    SendMessageW(Of(Control::HideNoteCheck), BM_SETCHECK, BST_CHECKED, 0);
    Press(Control::OKButton);
    EXPECT_EQ(world_.owner.calls, (Calls{"set", "minimize", "balloon", "dialog closing"}));
}

TEST_F(SetReminderFormTest, ClosesWithTheNotesWindow) {
    Open();
    world_.noteWindow.End();
    EXPECT_EQ(form_.Handle(), nullptr);
    EXPECT_EQ(world_.owner.calls, Calls{"dialog closing"});
    world_.loop.RunPending();  // its keys no longer belong to a dialog
}

TEST_F(SetReminderFormTest, WithoutANoteItStaysOpen) {
    SetReminderForm orphan(nullptr, world_.forDialogs);
    ASSERT_TRUE(orphan.Initialize(nullptr, kNoReminder));
    SendMessageW(orphan.ControlWindow(Control::OKButton), BM_CLICK, 0, 0);
    EXPECT_NE(orphan.Handle(), nullptr);
}

TEST_F(SetReminderFormTest, NothingIsCutAtAnyScaleAndWithLongDates) {
    world_.locale.longDates = true;
    Open(kExisting);
    Press(Control::CancelButton);
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        for (const ReminderControlText& text : kReminderControls) {
            const bool isLabel = Of(text.control) != nullptr && text.control != Control::ReminderBox &&
                                 text.control != Control::HideNoteCheck && text.control != Control::OKButton &&
                                 text.control != Control::CancelButton && text.control != Control::DividerBar;
            if (isLabel) ExpectUncut(text.control, dpi);
        }
        // The preview of the longest day.
        SetWindowTextW(Of(Control::PreviewLabel), L"Wednesday, Mittwoch, 27. September 2028, 10:58:58 PM");
        ExpectUncut(Control::PreviewLabel, dpi);
    }
}

TEST_F(SetReminderFormTest, EveryMessageFitsInItsArea) {
    Open();
    Type(u"whenever");
    Press(Control::OKButton);
    for (const int dpi : {96, 144, 192}) {
        SetDpi(dpi);
        for (const std::u16string_view message :
             {kNoPhraseMessage, kPhraseFormatMessage, kPhraseAmountMessage, kPhrasePeriodMessage}) {
            SetWindowTextW(Of(Control::MessageLabel), Wide(std::u16string(message)));
            ExpectUncut(Control::MessageLabel, dpi);
        }
    }
}

}  // namespace
}  // namespace quillo
