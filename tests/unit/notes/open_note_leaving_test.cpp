#include "open_note_fixture.h"

#include <algorithm>

namespace quillo {
namespace {

/// The note is closed while its message box is open.
class InformingNotice : public FakeUserNotice {
  public:
    explicit InformingNotice(NoteOwner& owner) : owner_(owner) {}
    void Inform(std::u16string_view text) override {
        FakeUserNotice::Inform(text);
        owner_.RemoveNote(kKey);
    }

  private:
    NoteOwner& owner_;
};

class OpenNoteLeaving : public OpenNoteTest {};

// Hiding and minimizing.

TEST_F(OpenNoteLeaving, HidingAppliesTheEffectsFirst) {
    ShowStored(u"text");
    note_.HideNote();
    EXPECT_EQ(view_.TakeCalls(), (Calls{"SetOpacity none", "Hide"}));
    EXPECT_FALSE(IsDestroyed());
}

TEST_F(OpenNoteLeaving, TheIconsCaption) {
    const std::u16string sixty(60, u'x');
    const struct {
        std::u16string text;
        std::u16string caption;
    } cases[] = {
        {u"", u""},
        {u"  Buy milk  ", u"Buy milk"},
        {u"one\r\ntwo\r\n\r\nthree", u"one two  three"},
        {u"one\ntwo", u"one\ntwo"},
        {u"\r\n  milk", u"   milk"},
        {sixty, sixty},
        {sixty + u"y", sixty + u"..."},
        {u"  " + sixty + u"  ", sixty},
        {std::u16string(30, u'a') + u"\r\n" + std::u16string(29, u'b'),
         std::u16string(30, u'a') + u" " + std::u16string(29, u'b')},
        {std::u16string(59, u'x') + u"\U0001F600", std::u16string(59, u'x') + u"..."},
        {std::u16string(58, u'x') + u"\U0001F600", std::u16string(58, u'x') + u"\U0001F600"},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(note_.SetText(c.text));
        note_.MinimizeToTray();
        EXPECT_EQ(view_.IconCaption(), c.caption);
    }
}

TEST_F(OpenNoteLeaving, AClickOnItsIconShowsItAgain) {
    ShowStored(u"text");
    note_.Perform(NoteAction::Minimize);
    EXPECT_EQ(note_.AppearanceString().back(), u'2');
    DropRecords();
    note_.Perform(NoteAction::Show);
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreUp});
    EXPECT_TRUE(view_.IsVisible());
    EXPECT_FALSE(view_.IsIconShowing());
    EXPECT_TRUE(note_.Data().Changed);
}

// Closing.

TEST_F(OpenNoteLeaving, ClosingANoteOfBlanksWritesNothing) {
    ShowStored(u"   ");
    ASSERT_TRUE(StorageExists());
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(SavedFiles().empty());
    EXPECT_TRUE(notice_.sounds.empty());
}

TEST_F(OpenNoteLeaving, ClosingAnEmptyNoteDestroysItAlsoWhenMinimizingIsOn) {
    settings_.minimizeToTray = true;
    note_.Perform(NoteAction::ClickClose);
    EXPECT_TRUE(IsDestroyed());
}

TEST_F(OpenNoteLeaving, ALineBreakIsATextToSave) {
    ShowStored(u"\r\n");
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(files_.List(shell_.FolderPath(SpecialFolder::DesktopDirectory), u".qln").size(), 1U);
}

TEST_F(OpenNoteLeaving, ClosingSavesToAFileNamedFromTheText) {
    ShowStored(u"Milk");
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreDown});
    const std::u16string path = kDocuments + u"\\Milk.qln";
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{path});
    EXPECT_NE(Content(path).find("<tempfilename>C:\\Documents\\Milk.qln</tempfilename>"), std::string::npos);
    EXPECT_NE(Content(path).find(",0,0</appearance>"), std::string::npos) << "saved while it was on the screen";
}

TEST_F(OpenNoteLeaving, ClosingSavesToTheNotesOwnFile) {
    ShowStored(u"Milk");
    const std::u16string own = kDocuments + u"\\Shopping.qln";
    note_.SetFileName(own);
    note_.Perform(NoteAction::Close);
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{own});
    EXPECT_NE(Content(own).find("<filename>C:\\Documents\\Shopping.qln</filename>"), std::string::npos);
}

TEST_F(OpenNoteLeaving, ClosingNeverOverwritesAFile) {
    ShowStored(u"Milk");
    const std::u16string own = kDocuments + u"\\Shopping.qln";
    files_.Put(own, "somebody else's");
    note_.SetFileName(own);
    note_.Perform(NoteAction::Close);
    EXPECT_EQ(Content(own), "somebody else's");
    EXPECT_NE(Content(kDocuments + u"\\Milk.qln").find("<tempfilename>"), std::string::npos);
}

TEST_F(OpenNoteLeaving, WithFileNamesForgottenANewFileIsNamedFromTheText) {
    settings_.doNotRememberFilenames = true;
    ShowStored(u"Milk");
    note_.SetFileName(kDocuments + u"\\Shopping.qln");
    note_.Perform(NoteAction::Close);
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{kDocuments + u"\\Milk.qln"});
}

TEST_F(OpenNoteLeaving, ClosingMinimizesWhenThatIsOn) {
    settings_.minimizeToTray = true;
    ShowStored(u"Milk");
    note_.Perform(NoteAction::Close);
    EXPECT_FALSE(IsDestroyed());
    EXPECT_EQ(view_.TakeCalls(), (Calls{"ShowIcon", "SetOpacity none", "Hide"}));
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreDown});
    EXPECT_TRUE(note_.Data().Changed) << "so that it comes back minimized";
    EXPECT_TRUE(SavedFiles().empty());
}

TEST_F(OpenNoteLeaving, ANoteWhoseIconTheShellRefusesIsStillMinimized) {
    ShowStored(u"Milk");
    view_.shellRefusesIcons = true;
    note_.Perform(NoteAction::Minimize);
    EXPECT_FALSE(view_.IsIconShowing());
    EXPECT_TRUE(note_.AppearanceString().ends_with(u",2")) << "stored as minimized, not as hidden";
    (void)view_.TakeCalls();
    note_.Popup();
    const Calls calls = view_.TakeCalls();
    EXPECT_NE(std::find(calls.begin(), calls.end(), "HideIcon"), calls.end())
        << "which ends the attempts: no icon comes up beside the visible note";
    note_.HideNote();
    EXPECT_TRUE(note_.AppearanceString().ends_with(u",1")) << "it wants no icon any more";
}

TEST_F(OpenNoteLeaving, ClosingFromTheMenuSavesANoteWithAReminderToo) {
    ShowStored(u"Milk");
    AsReminderOwner(note_).SetReminder(DaySerial{45123.75});
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_NE(Content(kDocuments + u"\\Milk.qln").find("<reminder>#45123.75</reminder>"), std::string::npos);
}

TEST_F(OpenNoteLeaving, AnEmptyNoteWithAReminderIsSaved) {
    ShowStored(u"");
    AsReminderOwner(note_).SetReminder(DaySerial{45123.75});
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(notice_.sounds.size(), 1U);
}

TEST_F(OpenNoteLeaving, ANoteThatCannotBeSavedIsLostOnlyOnYes) {
    ShowStored(u"Milk");
    files_.FailWrites(true);
    notice_.answer = false;
    note_.Perform(NoteAction::Close);
    EXPECT_FALSE(IsDestroyed());
    EXPECT_TRUE(view_.IsVisible());
    EXPECT_TRUE(StorageExists());
    ASSERT_EQ(notice_.questions.size(), 1U);
    EXPECT_EQ(notice_.questions[0].text,
              u"Quillo was unable to save this note to a file.  Do you still want to close it?\r\n\r\nIf you click "
              u"Yes, the note's contents will be lost.  If you click No, it will not be closed.");
    EXPECT_EQ(notice_.questions[0].question, Question::YesNoDefaultNo);

    notice_.answer = true;
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
}

TEST_F(OpenNoteLeaving, ANoteClosedDuringTheQuestionIsNotUsedAgain) {
    ShowStored(u"Milk");
    files_.FailWrites(true);
    notice_.answer = true;
    notice_.onAsk = [this] { owner_.RemoveNote(kKey); };
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(StorageExists()) << "what removed it has decided about its file";
    EXPECT_FALSE(view_.IsClosed());
}

// The close button.

TEST_F(OpenNoteLeaving, TheCloseButtonHidesANoteWithAReminder) {
    ShowStored(u"Milk");
    AsReminderOwner(note_).SetReminder(DaySerial{45123.75});
    note_.Perform(NoteAction::ClickClose);
    EXPECT_FALSE(IsDestroyed());
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(note_.Data().Changed);
    ASSERT_EQ(notice_.balloons.size(), 1U);
    EXPECT_EQ(notice_.balloons[0].title, u"This note was hidden.");
    EXPECT_EQ(notice_.balloons[0].text,
              u"You currently have a reminder set for this note, so it was hidden instead of closed.  To see the note "
              u"again before the reminder expires, click \"Show all notes\" on the main Quillo menu.");
    EXPECT_TRUE(notice_.informs.empty());
    EXPECT_TRUE(notice_.sounds.empty());
    EXPECT_TRUE(SavedFiles().empty());
}

TEST_F(OpenNoteLeaving, WithBalloonsOffItIsHiddenSilently) {
    settings_.disableBalloonHelp = true;
    AsReminderOwner(note_).SetReminder(DaySerial{45123.75});
    note_.Popup();
    note_.Perform(NoteAction::ClickClose);
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(notice_.balloons.empty());
    EXPECT_TRUE(notice_.informs.empty());
}

TEST_F(OpenNoteLeaving, AnOldSystemShowsItInAMessageBox) {
    os_.windows2000OrLater = false;
    settings_.disableBalloonHelp = true;
    AsReminderOwner(note_).SetReminder(DaySerial{45123.75});
    note_.Popup();
    note_.Perform(NoteAction::ClickClose);
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(notice_.balloons.empty());
    ASSERT_EQ(notice_.informs.size(), 1U);
    EXPECT_EQ(notice_.informs[0].substr(0, 24), u"You currently have a rem");
}

TEST_F(OpenNoteLeaving, ANoteClosedDuringThatMessageBoxIsNotUsedAgain) {
    os_.windows2000OrLater = false;
    InformingNotice notice(owner_);
    Hints hints{notice, settings_, os_, registry_};
    const std::unique_ptr<OpenNote> opened = OpenNote::Open(
        owner_, {settings_, {store_, timers_, failures_}, dates_, notice, hints, sharing_}, kKey, windows_);
    OpenNote& note = *opened;
    FakeNoteWindow& view = windows_.Last();
    AsReminderOwner(note).SetReminder(DaySerial{45123.75});
    static_cast<void>(view.TakeCalls());
    note.Perform(NoteAction::ClickClose);
    EXPECT_EQ(notice.informs.size(), 1U);
    EXPECT_TRUE(view.TakeCalls().empty());
}

TEST_F(OpenNoteLeaving, WithMinimizingOnTheCloseButtonMinimizesAlsoWithAReminder) {
    settings_.minimizeToTray = true;
    ShowStored(u"Milk");
    AsReminderOwner(note_).SetReminder(DaySerial{45123.75});
    note_.Perform(NoteAction::ClickClose);
    EXPECT_TRUE(view_.IsIconShowing());
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(notice_.balloons.empty());
    EXPECT_FALSE(IsDestroyed());
}

TEST_F(OpenNoteLeaving, WithoutAReminderTheCloseButtonCloses) {
    ShowStored(u"Milk");
    note_.Perform(NoteAction::ClickClose);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(SavedFiles().size(), 1U);
}

}  // namespace
}  // namespace quillo
