#include <algorithm>
#include <functional>
#include <utility>

#include "open_note_fixture.h"

namespace quillo {
namespace {

class OpenNoteReminderTest : public OpenNoteTest {
  protected:
    OpenNoteReminderTest() {
        EXPECT_TRUE(note_.SetText(u"water the ferns"));
        note_.Popup();
        DropRecords();
    }

    /// A reminder that many days from now, not marked as a change.
    void SetSilently(double days) {
        AsReminderOwner(note_).SetReminder(DaySerial{clock_.now.days + days});
        ASSERT_TRUE(note_.PersistNote());
        DropRecords();
    }
    void Dismiss() {
        note_.Popup();
        Reminded().ReminderClosing();
    }
    [[nodiscard]] std::optional<WindowState> StoredState() {
        const NoteFile file = ParseNoteFile(Content(note_.Data().StoragePath), locale_);
        return file.appearance ? file.appearance->state : std::nullopt;
    }
    /// True while the note waits to be saved.
    [[nodiscard]] bool IsSavePending() const { return timers_.Running() != 0; }
    [[nodiscard]] bool Did(const std::string& call) {
        const Calls calls = view_.TakeCalls();
        return std::find(calls.begin(), calls.end(), call) != calls.end();
    }
};

// The main timer.

TEST_F(OpenNoteReminderTest, WithoutAReminderATickDoesNothing) {
    note_.TimerBroadcast();
    EXPECT_EQ(view_.TakeCalls(), Calls{});
}

TEST_F(OpenNoteReminderTest, AReminderWaitsForItsTime) {
    SetSilently(1.0 / 86400);
    note_.TimerBroadcast();
    EXPECT_EQ(view_.TakeCalls(), Calls{});
    EXPECT_TRUE(note_.Data().ReminderSet);
}

TEST_F(OpenNoteReminderTest, ADueReminderOpensTheAlertThenHidesTheNote) {
    SetSilently(0);
    note_.TimerBroadcast();
    EXPECT_EQ(view_.TakeCalls(), (Calls{"Repaint", "OpenReminderAlert", "SetOpacity none", "Hide"}));
    EXPECT_EQ(view_.AlertText(), u"water the ferns");
    EXPECT_FALSE(note_.Data().ReminderSet);
    EXPECT_FALSE(note_.IsVisible());
}

TEST_F(OpenNoteReminderTest, AReminderInTheDistantPastFiresToo) {
    SetSilently(-40);
    note_.TimerBroadcast();
    EXPECT_TRUE(Did("OpenReminderAlert"));
}

TEST_F(OpenNoteReminderTest, IntendedAFiredReminderDoesNotMarkTheNote) {
    SetSilently(0);
    note_.TimerBroadcast();
    EXPECT_FALSE(note_.Data().Changed);
    EXPECT_FALSE(IsSavePending());
}

TEST_F(OpenNoteReminderTest, ASecondReminderWhileTheAlertIsOpenIsOnlyCleared) {
    SetSilently(0);
    note_.TimerBroadcast();
    SetSilently(0);
    note_.TimerBroadcast();
    EXPECT_EQ(view_.TakeCalls(), Calls{"Repaint"});
    EXPECT_FALSE(note_.Data().ReminderSet);
}

TEST_F(OpenNoteReminderTest, OnceTheAlertIsClosedTheNextOneOpens) {
    SetSilently(0);
    note_.TimerBroadcast();
    note_.Popup();
    Reminded().ReminderClosing();
    SetSilently(0);
    note_.TimerBroadcast();
    EXPECT_TRUE(Did("OpenReminderAlert"));
}

TEST_F(OpenNoteReminderTest, AnAlertDismissedWhileItOpensKeepsTheNoteOnTheScreen) {
    SetSilently(0);
    view_.whileAlertOpens = [this] {
        note_.Popup();
        Reminded().ReminderClosing();
    };
    note_.TimerBroadcast();
    EXPECT_TRUE(note_.IsVisible());
}

TEST_F(OpenNoteReminderTest, ANoteDestroyedWhileItsAlertOpensIsNotUsedAgain) {
    SetSilently(0);
    view_.whileAlertOpens = [this] { note_.DestroyNote(); };
    note_.TimerBroadcast();
    EXPECT_EQ(view_.TakeCalls(), (Calls{"Repaint", "OpenReminderAlert", "Close"}));
}

TEST_F(OpenNoteReminderTest, WithoutAnAlertTheNoteStaysOnTheScreen) {
    SetSilently(0);
    view_.refuseReminderWindows = true;
    note_.TimerBroadcast();
    EXPECT_TRUE(note_.IsVisible());
    view_.refuseReminderWindows = false;
    SetSilently(0);
    note_.TimerBroadcast();
    EXPECT_FALSE(note_.IsVisible()) << "an alert that was never shown is not open";
}

TEST_F(OpenNoteReminderTest, ANoteWrittenWhileItsAlertIsOpenIsStoredAgainAsItComesBack) {
    SetSilently(0);
    note_.TimerBroadcast();
    AsColorTarget(note_).SetColor(true, ColorWord{1}, ColorWord{2}, ColorWord{3});  // in a dialog that was already open
    timers_.Pass(2000);
    ASSERT_EQ(StoredState(), WindowState::Hidden);
    Dismiss();
    timers_.Pass(2000);
    EXPECT_EQ(StoredState(), WindowState::Shown);
}

TEST_F(OpenNoteReminderTest, ANoteThatCouldBeWrittenOnlyWhileItsAlertIsOpenIsStoredAgain) {
    SetSilently(1);
    files_.FailPath(note_.Data().StoragePath);
    AsReminderOwner(note_).SetReminder(clock_.now);
    note_.TimerBroadcast();
    files_.HealPath(note_.Data().StoragePath);
    timers_.Pass(10'000);
    ASSERT_EQ(StoredState(), WindowState::Hidden);
    Dismiss();
    timers_.Pass(2000);
    EXPECT_EQ(StoredState(), WindowState::Shown);
}

TEST_F(OpenNoteReminderTest, DismissingTheAlertOfAnUnchangedNoteDoesNotMarkIt) {
    SetSilently(0);
    note_.TimerBroadcast();
    Dismiss();
    EXPECT_FALSE(note_.Data().Changed);
    EXPECT_FALSE(IsSavePending());
}

TEST_F(OpenNoteReminderTest, AMinimizedNoteKeepsItsIconUntilTheAlertIsDismissed) {
    note_.Perform(NoteAction::Minimize);
    SetSilently(0);
    note_.TimerBroadcast();
    EXPECT_TRUE(view_.IsIconShowing());
    note_.Popup();
    EXPECT_FALSE(view_.IsIconShowing());
    EXPECT_TRUE(note_.IsVisible());
}

// The dialog.

TEST_F(OpenNoteReminderTest, TheDialogGetsTheReminderOrNone) {
    note_.Perform(NoteAction::AskReminder);
    EXPECT_EQ(view_.DialogReminder(), kNoReminder);
    Reminded().SetReminderClosing();
    AsReminderOwner(note_).SetReminder(DaySerial{46000.5});
    note_.Perform(NoteAction::AskReminder);
    EXPECT_EQ(view_.DialogReminder(), DaySerial{46000.5});
    Reminded().SetReminderClosing();
    note_.CancelReminder();
    note_.Perform(NoteAction::AskReminder);
    EXPECT_EQ(view_.DialogReminder(), kNoReminder) << "a time that no longer counts";
}

TEST_F(OpenNoteReminderTest, AnOpenDialogComesToTheFront) {
    note_.Perform(NoteAction::AskReminder);
    note_.Perform(NoteAction::AskReminder);
    EXPECT_EQ(view_.TakeCalls(), (Calls{"OpenReminderDialog", "BringReminderDialogForward"}));
    Reminded().SetReminderClosing();
    note_.Perform(NoteAction::AskReminder);
    EXPECT_EQ(view_.TakeCalls(), Calls{"OpenReminderDialog"});
}

TEST_F(OpenNoteReminderTest, ADialogThatDidNotOpenIsOpenedNextTime) {
    view_.refuseReminderWindows = true;
    note_.Perform(NoteAction::AskReminder);
    note_.Perform(NoteAction::AskReminder);
    EXPECT_EQ(view_.TakeCalls(), (Calls{"OpenReminderDialog", "OpenReminderDialog"}));
}

TEST_F(OpenNoteReminderTest, AskingChangesNothing) {
    note_.Perform(NoteAction::AskReminder);
    EXPECT_FALSE(note_.Data().Changed);
}

TEST_F(OpenNoteReminderTest, TheNotesOwnIconShowsTheBalloon) {
    Reminded().ShowIconBalloon(u"text", u"title", BalloonIcon::Information);
    EXPECT_EQ(view_.TakeCalls(), Calls{"ShowIconBalloon 1"});
    EXPECT_EQ(view_.BalloonText(), u"text");
    EXPECT_EQ(view_.BalloonTitle(), u"title");
}

// Changes that are saved soon.

TEST_F(OpenNoteReminderTest, EveryChangeIsSavedSoon) {
    const std::vector<std::pair<const char*, std::function<void()>>> changes = {
        {"SetReminder", [this] { AsReminderOwner(note_).SetReminder(DaySerial{46000}); }},
        {"CancelReminderByUser", [this] { Reminded().CancelReminderByUser(); }},
        {"SetLargeText", [this] { note_.Perform(NoteAction::ToggleLargeText); }},
        {"AddTimestamp", [this] { note_.Perform(NoteAction::AddTimestamp); }},
        {"SetColor", [this] { AsColorTarget(note_).SetColor(true, ColorWord{1}, ColorWord{2}, ColorWord{3}); }},
        {"HideByUser", [this] { AsReminderOwner(note_).HideByUser(); }},
        {"PopupByUser", [this] { note_.PopupByUser(); }},
        {"MinimizeByUser", [this] { note_.Perform(NoteAction::Minimize); }},
        {"ShowFromIcon", [this] { note_.Perform(NoteAction::Show); }},
        {"an edit or a move", [this] { note_.MarkChanged(); }},
    };
    for (const auto& [name, change] : changes) {
        ASSERT_TRUE(note_.PersistNote() || !note_.Data().Changed);
        DropRecords();
        change();
        EXPECT_TRUE(note_.Data().Changed) << name;
        EXPECT_TRUE(IsSavePending()) << name;
    }
}

TEST_F(OpenNoteReminderTest, SilentOperationsAreNotSaved) {
    SetSilently(1);
    note_.HideNote();
    note_.Popup();
    note_.MinimizeToTray();
    note_.CancelReminder();
    note_.UpdateColors();
    EXPECT_FALSE(note_.Data().Changed);
    EXPECT_FALSE(IsSavePending());
}

TEST_F(OpenNoteReminderTest, SettingAndCancelingAReminderRepaints) {
    AsReminderOwner(note_).SetReminder(DaySerial{45123.75});
    EXPECT_TRUE(note_.Data().ReminderSet);
    EXPECT_EQ(note_.Data().ReminderTime, DaySerial{45123.75});
    note_.CancelReminder();
    EXPECT_FALSE(note_.Data().ReminderSet);
    EXPECT_EQ(view_.TakeCalls(), (Calls{"Repaint", "Repaint"}));
}

}  // namespace
}  // namespace quillo
