#include "reminders/reminder_dialog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/base/hints.h"
#include "app/base/os_facts.h"
#include "app/base/registry_keys.h"
#include "app/base/settings.h"
#include "recording_owner.h"
#include "registry/tessel_registry.h"
#include "reminders/reminder_controls.h"
#include "reminders/reminder_phrase.h"
#include "testing/fake_locale_text.h"
#include "testing/fake_registry_api.h"
#include "testing/fake_user_notice.h"

namespace quillo {
namespace {

const DaySerial kNow = ToDaySerial({2026, 11, 15, 14, 10, 0});
const DaySerial kExisting = ToDaySerial({2026, 11, 20, 9, 30, 0});
constexpr std::u16string_view kHint = u"Click \"keep reminder\" or \"cancel reminder\" above.";

ReminderStep Unload() {
    ReminderStep step;
    step.unload = true;
    return step;
}

ReminderStep MessageStep(bool grow) {
    ReminderStep step;
    step.playAsterisk = true;
    step.growForMessage = grow;
    step.selectAll = true;
    return step;
}

/// Names the time of a reminder that is set.
class TimedOwner : public RecordingOwner {
  public:
    void SetReminder(DaySerial time) override {
        const CivilTime civil = ToCivilTime(time);
        calls.push_back("set " + std::to_string(civil.hour) + ":" + std::to_string(civil.minute));
    }
};
using DialogCalls = std::vector<std::string>;

class ReminderDialogTest : public ::testing::Test {
  protected:
    [[nodiscard]] ReminderDialog Fresh() { return {kNoReminder, true, locale_}; }
    [[nodiscard]] ReminderDialog WithReminder() { return {kExisting, true, locale_}; }

    FakeLocaleText locale_;
};

// The start.

TEST_F(ReminderDialogTest, StartsWithAnExample) {
    const ReminderDialog dialog = Fresh();
    EXPECT_EQ(dialog.StartText(), u"in 15 minutes");
    EXPECT_EQ(dialog.OkCaption(), u"Set reminder");
    EXPECT_FALSE(dialog.CancelPanelShown());
    EXPECT_FALSE(dialog.MessageShown());
    EXPECT_EQ(dialog.Message(), u"");
    EXPECT_EQ(dialog.ActiveReminder(), u"");
}

TEST_F(ReminderDialogTest, StartsWithTheReminderThatIsSet) {
    EXPECT_EQ(WithReminder().StartText(), u"11/20/2026 9:30:00 AM");
    EXPECT_EQ(ReminderDialog(ToDaySerial({2026, 11, 20, 0, 0, 0}), true, locale_).StartText(), u"11/20/2026");
}

TEST_F(ReminderDialogTest, OnlyTheVeryNoReminderValueMeansNone) {
    EXPECT_EQ(ReminderDialog(DaySerial{29926}, true, locale_).StartText(), u"in 15 minutes");
    EXPECT_EQ(ReminderDialog(DaySerial{29926.5}, true, locale_).StartText(), u"12/6/1981 12:00:00 PM");
    EXPECT_EQ(ReminderDialog(DaySerial{29925}, true, locale_).StartText(), u"12/5/1981");
}

// OKButton.

TEST_F(ReminderDialogTest, OkSetsTheReminderAndCloses) {
    ReminderDialog dialog = Fresh();
    const ReminderStep step = dialog.PressOk(u" In 20 Minutes ", NoteAway::Stay, kNow);
    ReminderStep expected = Unload();
    expected.setReminder = ToDaySerial({2026, 11, 15, 14, 30, 0});
    EXPECT_EQ(step, expected);
    EXPECT_FALSE(dialog.MessageShown());

    TimedOwner owner;
    CarryOut(step, &owner);
    EXPECT_EQ(owner.calls, DialogCalls{"set 14:30"});
}

TEST_F(ReminderDialogTest, OkWithAReminderSetReplacesIt) {
    ReminderDialog dialog = WithReminder();
    const ReminderStep step = dialog.PressOk(dialog.StartText(), NoteAway::Stay, kNow);
    EXPECT_EQ(step.setReminder, kExisting) << "the text it starts with is understood";
    EXPECT_TRUE(step.unload);
}

TEST_F(ReminderDialogTest, OkWithoutANoteSetsNothingAndStays) {
    ReminderDialog dialog(kNoReminder, false, locale_);
    const ReminderStep step = dialog.PressOk(u"noon", NoteAway::Hide, kNow);
    EXPECT_EQ(step, ReminderStep{});
    EXPECT_FALSE(dialog.MessageShown());
    CarryOut(dialog.PressOk(u"noon", NoteAway::Hide, kNow), nullptr);
}

TEST_F(ReminderDialogTest, EveryMessageKeepsTheFormOpenWithTheTextSelected) {
    const struct {
        std::u16string_view typed;
        std::u16string_view message;
    } cases[] = {{u"", kNoPhraseMessage},
                 {u"in x", kPhraseFormatMessage},
                 {u"in 2x h", kPhraseAmountMessage},
                 {u"in 2 weeks", kPhrasePeriodMessage},
                 {u"whenever", kPhraseUnknownMessage}};
    for (const auto& c : cases) {
        ReminderDialog dialog = Fresh();
        EXPECT_EQ(dialog.PressOk(c.typed, NoteAway::Hide, kNow), MessageStep(true));
        EXPECT_EQ(dialog.Message(), c.message);
        EXPECT_TRUE(dialog.MessageShown());
        EXPECT_EQ(dialog.OkCaption(), u"Set reminder");
    }
}

TEST_F(ReminderDialogTest, TheFormGrowsForTheFirstMessageOnly) {
    ReminderDialog dialog = Fresh();
    EXPECT_EQ(dialog.PressOk(u"", NoteAway::Stay, kNow), MessageStep(true));
    EXPECT_EQ(dialog.PressOk(u"whenever", NoteAway::Stay, kNow), MessageStep(false));
    EXPECT_EQ(dialog.Message(), kPhraseUnknownMessage) << "in the place of the first";
    EXPECT_EQ(dialog.PressOk(u"", NoteAway::Stay, kNow), MessageStep(false));
    const ReminderStep step = dialog.PressOk(u"noon", NoteAway::Stay, kNow);
    EXPECT_TRUE(step.setReminder.has_value());
    EXPECT_TRUE(step.unload);
}

TEST_F(ReminderDialogTest, AMessageDoesNotChangeTheNote) {
    TimedOwner owner;
    ReminderDialog dialog = WithReminder();
    CarryOut(dialog.PressOk(u"whenever", NoteAway::MinimizeWithBalloon, kNow), &owner);
    EXPECT_EQ(owner.calls, DialogCalls{});
}

// Hiding the note.

TEST_F(ReminderDialogTest, TheNoteLeavesTheScreenAfterItsReminderIsSet) {
    const struct {
        NoteAway away;
        DialogCalls calls;
    } cases[] = {{NoteAway::Stay, {"set 15:10"}},
                 {NoteAway::Hide, {"set 15:10", "hide"}},
                 {NoteAway::Minimize, {"set 15:10", "minimize"}},
                 {NoteAway::MinimizeWithBalloon, {"set 15:10", "minimize", "balloon"}}};
    for (const auto& c : cases) {
        TimedOwner owner;
        ReminderDialog dialog = Fresh();
        CarryOut(dialog.PressOk(u"in an hour", c.away, kNow), &owner);
        EXPECT_EQ(owner.calls, c.calls);
    }
}

TEST_F(ReminderDialogTest, TheBalloonExplainsWhereTheNoteIs) {
    TimedOwner owner;
    CarryOut(Fresh().PressOk(u"noon", NoteAway::MinimizeWithBalloon, kNow), &owner);
    EXPECT_EQ(owner.balloonText,
              u"Your note has been minimized to this icon.  You can click this icon at any time to display it again.");
    EXPECT_EQ(owner.balloonTitle, u"Note minimized");
    EXPECT_EQ(owner.balloonIcon, BalloonIcon::Information);
}

TEST(ChooseNoteAway, DependsOnSettingsSystemAndHabit) {
    for (int bits = 0; bits < 16; ++bits) {
        Settings settings;
        settings.minimizeToTray = (bits & 1) != 0;
        settings.disableBalloonHelp = (bits & 2) != 0;
        OsFacts os;
        os.windows2000OrLater = (bits & 4) != 0;
        const bool hasHidden = (bits & 8) != 0;
        FakeRegistryApi registry;
        FakeUserNotice notice;
        TesselRegistry(registry, kUserKey).SetValueLong(u"Has hidden notes", hasHidden ? -1 : 0);

        NoteAway expected = NoteAway::Hide;
        if (settings.minimizeToTray) {
            const bool balloon = !settings.disableBalloonHelp && os.windows2000OrLater && !hasHidden;
            expected = balloon ? NoteAway::MinimizeWithBalloon : NoteAway::Minimize;
        }
        EXPECT_EQ(ChooseNoteAway(settings, Hints(notice, settings, os, registry)), expected) << bits;
    }
}

TEST(ChooseNoteAway, AnAbsentValueMeansThatNothingWasHiddenYet) {
    FakeRegistryApi registry;
    FakeUserNotice notice;
    const OsFacts os;
    Settings settings;
    settings.minimizeToTray = true;
    EXPECT_EQ(ChooseNoteAway(settings, Hints(notice, settings, os, registry)), NoteAway::MinimizeWithBalloon);
}

// CancelButton.

TEST_F(ReminderDialogTest, CancelWithoutAReminderChangesNothing) {
    TimedOwner owner;
    ReminderDialog dialog = Fresh();
    const ReminderStep step = dialog.PressCancel();
    EXPECT_EQ(step, Unload());
    CarryOut(step, &owner);
    EXPECT_EQ(owner.calls, DialogCalls{});
}

TEST_F(ReminderDialogTest, CancelWithAReminderAsksFirst) {
    ReminderDialog dialog = WithReminder();
    EXPECT_EQ(dialog.PressCancel(), ReminderStep{}) << "the form stays, and nothing sounds";
    EXPECT_TRUE(dialog.CancelPanelShown());
    EXPECT_EQ(dialog.OkCaption(), u"Keep reminder");
    EXPECT_EQ(dialog.ActiveReminder(), u"11/20/2026 9:30:00 AM");
    EXPECT_EQ(dialog.Message(), kHint);
    EXPECT_FALSE(dialog.MessageShown()) << "the hint is no error: it does not open the message line";
}

TEST_F(ReminderDialogTest, TheHintReplacesAnEarlierMessage) {
    ReminderDialog dialog = WithReminder();
    EXPECT_EQ(dialog.PressOk(u"whenever", NoteAway::Stay, kNow), MessageStep(true));
    EXPECT_EQ(dialog.PressCancel(), ReminderStep{});
    EXPECT_TRUE(dialog.MessageShown());
    EXPECT_EQ(dialog.Message(), kHint);
}

TEST_F(ReminderDialogTest, ASecondCancelRemovesTheReminder) {
    TimedOwner owner;
    ReminderDialog dialog = WithReminder();
    CarryOut(dialog.PressCancel(), &owner);
    EXPECT_EQ(owner.calls, DialogCalls{});
    ReminderStep expected = Unload();
    expected.cancelReminder = true;
    const ReminderStep step = dialog.PressCancel();
    EXPECT_EQ(step, expected);
    CarryOut(step, &owner);
    EXPECT_EQ(owner.calls, DialogCalls{"cancel"});
}

TEST_F(ReminderDialogTest, KeepReminderChangesNothingForAnyText) {
    for (const std::u16string_view typed : {u"in 20 minutes", u"", u"whenever"}) {
        TimedOwner owner;
        ReminderDialog dialog = WithReminder();
        CarryOut(dialog.PressCancel(), &owner);
        const ReminderStep step = dialog.PressOk(typed, NoteAway::Hide, kNow);
        EXPECT_EQ(step, Unload());
        CarryOut(step, &owner);
        EXPECT_EQ(owner.calls, DialogCalls{});
    }
}

TEST_F(ReminderDialogTest, WithoutANoteTheSecondCancelStillCloses) {
    ReminderDialog dialog(kExisting, false, locale_);
    EXPECT_EQ(dialog.PressCancel(), ReminderStep{});
    const ReminderStep step = dialog.PressCancel();
    EXPECT_TRUE(step.unload);
    CarryOut(step, nullptr);
}

// The preview.

TEST_F(ReminderDialogTest, ThePreviewShowsHowAPhraseIsUnderstood) {
    const ReminderDialog dialog = Fresh();
    EXPECT_EQ(dialog.Preview(u"in 20 minutes", kNow), u"Sunday, 11/15/2026, 2:30:00 PM");
    EXPECT_EQ(dialog.Preview(u"tomorrow", kNow), u"Monday, 11/16/2026, 12:00:00 AM");
    EXPECT_EQ(dialog.Preview(u"9a", kNow), u"Monday, 11/16/2026, 9:00:00 AM");
    for (const std::u16string_view typed : {u"", u"in", u"in 20", u"in 20 m i", u"whenever"})
        EXPECT_EQ(dialog.Preview(typed, kNow), u"");
}

TEST_F(ReminderDialogTest, ThePreviewIsNeverShownWithAMessage) {
    ReminderDialog dialog = Fresh();
    EXPECT_TRUE(dialog.PressOk(u"", NoteAway::Stay, kNow).growForMessage);
    EXPECT_EQ(dialog.Preview(u"in 20 minutes", kNow), u"");
}

TEST_F(ReminderDialogTest, ThePreviewIsNotShownOnTheCancelPanel) {
    ReminderDialog dialog = WithReminder();
    EXPECT_NE(dialog.Preview(u"noon", kNow), u"");
    EXPECT_FALSE(dialog.PressCancel().unload);
    EXPECT_EQ(dialog.Preview(u"noon", kNow), u"");
}

// The table of controls.

TEST(ReminderControls, TheTableIsInTheOrderOfItsNames) {
    for (std::size_t i = 0; i < kReminderControls.size(); ++i)
        EXPECT_EQ(static_cast<std::size_t>(kReminderControls[i].control), i);
    EXPECT_EQ(kReminderControls.size(), static_cast<std::size_t>(ReminderControl::PreviewLabel) + 1);
}

TEST(ReminderControls, TextsAreExact) {
    using C = ReminderControl;
    EXPECT_EQ(kReminderDialogCaption, u"Set a reminder");
    EXPECT_EQ(TextOf(C::ReminderBox).toolTip, u"Type the time at which you would like to be reminded in this box.");
    EXPECT_EQ(TextOf(C::HideNoteCheck).caption, u"Hide this note until then");
    EXPECT_EQ(TextOf(C::HideNoteCheck).toolTip,
              u"Click here if you would like this note to be hidden until the reminder event occurs.");
    EXPECT_EQ(TextOf(C::HeadingLabel).caption, u"Set a reminder for this sticky note");
    EXPECT_EQ(TextOf(C::InstructionLabel).caption,
              u"When would you like to be reminded?  (If you decide you do not wish to be reminded, click Cancel "
              u"reminder.)");
    EXPECT_EQ(TextOf(C::ExamplesLabel).caption, u"Examples:");
    EXPECT_EQ(TextOf(C::FirstExampleLabel).caption, u"\u2022   in 20 minutes");
    EXPECT_EQ(TextOf(C::OKButton).caption, u"Set reminder");
    EXPECT_EQ(TextOf(C::OKButton).toolTip, u"Click here to set this reminder.");
    EXPECT_EQ(TextOf(C::CancelButton).caption, u"Cancel reminder");
    EXPECT_EQ(TextOf(C::CancelButton).toolTip, u"Click here to not be reminded at this time.");
    EXPECT_EQ(TextOf(C::CancelHeadingLabel).caption, u"You already have a reminder set.");
    EXPECT_EQ(TextOf(C::CancelExplanationLabel).caption,
              u"Click \"Keep reminder\" if you still wish to be reminded at this time, or \"Cancel reminder\" if you "
              u"want to cancel this reminder completely.");
}

}  // namespace
}  // namespace quillo
