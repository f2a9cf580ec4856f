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

/// The note is closed while the shell moves a file to the Recycle Bin.
class PumpingShell : public FakeShell {
  public:
    PumpingShell(FakeFileStore& files, NoteOwner& owner) : FakeShell(files), owner_(owner) {}
    RecycleResult Recycle(std::u16string_view path) override {
        owner_.RemoveNote(kKey);
        return FakeShell::Recycle(path);
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
    note_.MinimizeByUser();
    EXPECT_EQ(note_.AppearanceString().back(), u'2');
    DropRecords();
    note_.ShowFromIcon();
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreUp});
    EXPECT_TRUE(view_.IsVisible());
    EXPECT_FALSE(view_.IsIconShowing());
    EXPECT_TRUE(note_.Data().Changed);
}

// Closing.

TEST_F(OpenNoteLeaving, ClosingANoteOfBlanksWritesNothing) {
    ShowStored(u"   ");
    ASSERT_TRUE(StorageExists());
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(SavedFiles().empty());
    EXPECT_TRUE(notice_.sounds.empty());
}

TEST_F(OpenNoteLeaving, ClosingAnEmptyNoteDestroysItAlsoWhenMinimizingIsOn) {
    settings_.minimizeToTray = true;
    note_.CloseButtonClick();
    EXPECT_TRUE(IsDestroyed());
}

TEST_F(OpenNoteLeaving, ALineBreakIsATextToSave) {
    ShowStored(u"\r\n");
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(files_.List(shell_.FolderPath(SpecialFolder::DesktopDirectory), u".qln").size(), 1U);
}

TEST_F(OpenNoteLeaving, ClosingSavesToAFileNamedFromTheText) {
    ShowStored(u"Milk");
    note_.CloseNote();
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
    note_.CloseNote();
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{own});
    EXPECT_NE(Content(own).find("<filename>C:\\Documents\\Shopping.qln</filename>"), std::string::npos);
}

TEST_F(OpenNoteLeaving, ClosingNeverOverwritesAFile) {
    ShowStored(u"Milk");
    const std::u16string own = kDocuments + u"\\Shopping.qln";
    files_.Put(own, "somebody else's");
    note_.SetFileName(own);
    note_.CloseNote();
    EXPECT_EQ(Content(own), "somebody else's");
    EXPECT_NE(Content(kDocuments + u"\\Milk.qln").find("<tempfilename>"), std::string::npos);
}

TEST_F(OpenNoteLeaving, WithFileNamesForgottenANewFileIsNamedFromTheText) {
    settings_.doNotRememberFilenames = true;
    ShowStored(u"Milk");
    note_.SetFileName(kDocuments + u"\\Shopping.qln");
    note_.CloseNote();
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{kDocuments + u"\\Milk.qln"});
}

TEST_F(OpenNoteLeaving, ClosingMinimizesWhenThatIsOn) {
    settings_.minimizeToTray = true;
    ShowStored(u"Milk");
    note_.CloseNote();
    EXPECT_FALSE(IsDestroyed());
    EXPECT_EQ(view_.TakeCalls(), (Calls{"ShowIcon", "SetOpacity none", "Hide"}));
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreDown});
    EXPECT_TRUE(note_.Data().Changed) << "so that it comes back minimized";
    EXPECT_TRUE(SavedFiles().empty());
}

TEST_F(OpenNoteLeaving, ANoteWhoseIconTheShellRefusesIsStillMinimized) {
    ShowStored(u"Milk");
    view_.shellRefusesIcons = true;
    note_.MinimizeByUser();
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
    note_.SetReminder(DaySerial{45123.75});
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_NE(Content(kDocuments + u"\\Milk.qln").find("<reminder>#45123.75</reminder>"), std::string::npos);
}

TEST_F(OpenNoteLeaving, AnEmptyNoteWithAReminderIsSaved) {
    ShowStored(u"");
    note_.SetReminder(DaySerial{45123.75});
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(notice_.sounds.size(), 1U);
}

TEST_F(OpenNoteLeaving, ANoteThatCannotBeSavedIsLostOnlyOnYes) {
    ShowStored(u"Milk");
    files_.FailWrites(true);
    notice_.answer = false;
    note_.CloseNote();
    EXPECT_FALSE(IsDestroyed());
    EXPECT_TRUE(view_.IsVisible());
    EXPECT_TRUE(StorageExists());
    ASSERT_EQ(notice_.questions.size(), 1U);
    EXPECT_EQ(notice_.questions[0].text,
              u"Quillo was unable to save this note to a file.  Do you still want to close it?\r\n\r\nIf you click "
              u"Yes, the note's contents will be lost.  If you click No, it will not be closed.");
    EXPECT_EQ(notice_.questions[0].question, Question::YesNoDefaultNo);

    notice_.answer = true;
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
}

TEST_F(OpenNoteLeaving, ANoteClosedDuringTheQuestionIsNotUsedAgain) {
    ShowStored(u"Milk");
    files_.FailWrites(true);
    notice_.answer = true;
    notice_.onAsk = [this] { owner_.RemoveNote(kKey); };
    note_.CloseNote();
    EXPECT_TRUE(StorageExists()) << "whoever removed it decided about its file";
    EXPECT_FALSE(view_.IsClosed());
}

// The close button.

TEST_F(OpenNoteLeaving, TheCloseButtonHidesANoteWithAReminder) {
    ShowStored(u"Milk");
    note_.SetReminder(DaySerial{45123.75});
    note_.CloseButtonClick();
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
    note_.SetReminder(DaySerial{45123.75});
    note_.Popup();
    note_.CloseButtonClick();
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(notice_.balloons.empty());
    EXPECT_TRUE(notice_.informs.empty());
}

TEST_F(OpenNoteLeaving, AnOldSystemShowsItInAMessageBox) {
    os_.windows2000OrLater = false;
    settings_.disableBalloonHelp = true;
    note_.SetReminder(DaySerial{45123.75});
    note_.Popup();
    note_.CloseButtonClick();
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(notice_.balloons.empty());
    ASSERT_EQ(notice_.informs.size(), 1U);
    EXPECT_EQ(notice_.informs[0].substr(0, 24), u"You currently have a rem");
}

TEST_F(OpenNoteLeaving, ANoteClosedDuringThatMessageBoxIsNotUsedAgain) {
    os_.windows2000OrLater = false;
    InformingNotice notice(owner_);
    FakeNoteView view;
    OpenNote note{{settings_, os_, kFolder, store_, timers_, failures_, locale_, clock_, notice, owner_, printer_,
                   mail_, registry_},
                  kKey};
    note.AttachView(view);
    note.SetReminder(DaySerial{45123.75});
    static_cast<void>(view.TakeCalls());
    note.CloseButtonClick();
    EXPECT_EQ(notice.informs.size(), 1U);
    EXPECT_TRUE(view.TakeCalls().empty());
}

TEST_F(OpenNoteLeaving, WithMinimizingOnTheCloseButtonMinimizesAlsoWithAReminder) {
    settings_.minimizeToTray = true;
    ShowStored(u"Milk");
    note_.SetReminder(DaySerial{45123.75});
    note_.CloseButtonClick();
    EXPECT_TRUE(view_.IsIconShowing());
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(notice_.balloons.empty());
    EXPECT_FALSE(IsDestroyed());
}

TEST_F(OpenNoteLeaving, WithoutAReminderTheCloseButtonCloses) {
    ShowStored(u"Milk");
    note_.CloseButtonClick();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(SavedFiles().size(), 1U);
}

// Deleting.

TEST_F(OpenNoteLeaving, DeletingPutsANoteFileIntoTheRecycleBin) {
    ShowStored(u"Milk");
    note_.QueryDeleteNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(SavedFiles().empty());
    ASSERT_EQ(shell_.recycled.size(), 1U);
    EXPECT_EQ(shell_.recycled[0].path, kDocuments + u"\\Milk.qln");
    EXPECT_NE(shell_.recycled[0].content.find("<tempfilename>"), std::string::npos);
    EXPECT_EQ(shell_.recycled[0].content.find("<nodelete>"), std::string::npos);
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreDown});
    EXPECT_TRUE(notice_.questions.empty());
}

// Intended: only the quick ways make an empty note disappear.
TEST_F(OpenNoteLeaving, DeletingWritesAFileOfAnEmptyNoteToo) {
    ShowStored(u"");
    note_.QueryDeleteNote();
    EXPECT_TRUE(IsDestroyed());
    ASSERT_EQ(shell_.recycled.size(), 1U);
    EXPECT_TRUE(shell_.recycled.front().path.ends_with(u"\\Note 1.qln"));
}

TEST_F(OpenNoteLeaving, DeletingPermanentlyAsksFirst) {
    settings_.dontRecycleNotes = true;
    ShowStored(u"Milk");
    notice_.answer = false;
    note_.QueryDeleteNote();
    EXPECT_FALSE(IsDestroyed());
    EXPECT_TRUE(StorageExists());
    ASSERT_EQ(notice_.questions.size(), 1U);
    EXPECT_EQ(notice_.questions[0].text,
              u"This action will permanently delete this note, and you will not be able to get it back.  Only click OK "
              u"if you are sure that you do not want this note anymore; otherwise, click Cancel.");
    EXPECT_EQ(notice_.questions[0].question, Question::OkCancelDefaultCancel);

    notice_.answer = true;
    note_.QueryDeleteNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(shell_.recycled.empty());
    EXPECT_TRUE(SavedFiles().empty());
}

TEST_F(OpenNoteLeaving, ANoteClosedDuringTheDeleteQuestionIsNotRecycled) {
    settings_.dontRecycleNotes = true;
    ShowStored(u"Milk");
    notice_.answer = true;
    notice_.onAsk = [this] {
        settings_.dontRecycleNotes = false;
        owner_.RemoveNote(kKey);
    };
    note_.QueryDeleteNote();
    EXPECT_TRUE(shell_.recycled.empty());
    EXPECT_TRUE(StorageExists());
}

TEST_F(OpenNoteLeaving, ADeletedNoteThatCannotBeSavedAnywhereIsLostOnlyOnYes) {
    ShowStored(u"Milk");
    files_.FailWrites(true);
    notice_.answer = false;
    note_.DeleteNote();
    EXPECT_FALSE(IsDestroyed());
    EXPECT_TRUE(StorageExists());
    ASSERT_EQ(notice_.questions.size(), 1U);
    EXPECT_EQ(notice_.questions[0].question, Question::YesNoDefaultNo);

    notice_.answer = true;
    note_.DeleteNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(shell_.recycled.empty());
}

TEST_F(OpenNoteLeaving, ADeletedNoteThatItsFolderRefusesIsKeptElsewhere) {
    ShowStored(u"Milk");
    files_.RemoveFolder(kDocuments);
    note_.DeleteNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_TRUE(shell_.recycled.empty());
    EXPECT_EQ(Content(u"C:\\Users\\ann\\Desktop\\Milk.qln").substr(0, 6), "Milk\r\n");
    ASSERT_EQ(notice_.balloons.size(), 1U);
    EXPECT_TRUE(notice_.questions.empty());
}

TEST_F(OpenNoteLeaving, AFileThatTheSystemDeletedPermanentlyIsWrittenAgain) {
    shell_.recycling = RecycleResult::Gone;
    ShowStored(u"Milk");
    note_.DeleteNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_EQ(Content(kDocuments + u"\\Milk.qln").substr(0, 6), "Milk\r\n");
    ASSERT_EQ(notice_.balloons.size(), 1U);
    EXPECT_NE(notice_.balloons[0].text.find(kDocuments + u"\\Milk.qln"), std::u16string::npos);
}

TEST_F(OpenNoteLeaving, AFileOfTheUsersOwnIsTheirOwnAgainAfterTheSystemDeletedIt) {
    shell_.recycling = RecycleResult::Gone;
    ShowStored(u"Milk");
    const std::u16string own = kDocuments + u"\\Shopping.qln";
    note_.SetFileName(own);
    note_.DeleteNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{own});
    EXPECT_NE(Content(own).find("<filename>C:\\Documents\\Shopping.qln</filename>"), std::string::npos);
}

/// The system deletes the file permanently, and the disk accepts no more data.
class LosingShell : public FakeShell {
  public:
    explicit LosingShell(FakeFileStore& files) : FakeShell(files), files_(files) {}
    RecycleResult Recycle(std::u16string_view path) override {
        files_.Remove(path);
        files_.FailWrites(true);
        return RecycleResult::Gone;
    }

  private:
    FakeFileStore& files_;
};

TEST_F(OpenNoteLeaving, ANoteThatTheBinLostAndNoDiskAcceptsIsKeptUnlessTheUserGivesItUp) {
    LosingShell shell(files_);
    NoteStore store{files_, locale_, shell, names_, kFolder};
    FakeNoteView view;
    OpenNote note{{settings_, os_, kFolder, store, timers_, failures_, locale_, clock_, notice_, owner_, printer_,
                   mail_, registry_},
                  kKey};
    note.AttachView(view);
    ASSERT_TRUE(note.SetText(u"Milk"));
    note.MarkChanged();
    ASSERT_TRUE(note.PersistNote());
    notice_.answer = false;
    note.DeleteNote();
    EXPECT_TRUE(owner_.IsOpen(kKey));
    EXPECT_TRUE(StorageExists());
    EXPECT_EQ(notice_.questions.size(), 1U);
}

TEST_F(OpenNoteLeaving, AFileThatTheRecycleBinRefusesStays) {
    shell_.recycling = RecycleResult::Stays;
    ShowStored(u"Milk");
    note_.DeleteNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{kDocuments + u"\\Milk.qln"});
    EXPECT_EQ(notice_.balloons.size(), 1U);
}

TEST_F(OpenNoteLeaving, TheOnlyFileOfANoteIsNeverDeleted) {
    const std::u16string path = kFolder + u"\\Own.qln";
    ASSERT_TRUE(note_.SetText(u"Milk"));
    note_.Saver().SetStorageCopy({path, 0});
    note_.SetFileName(kFolder + u"\\OWN.qln");  // in the same place, and deleted from there by another program
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(Content(kDocuments + u"\\Milk.qln").substr(0, 6), "Milk\r\n");
}

TEST_F(OpenNoteLeaving, ANoteClosedIntoTheNotesFolderItselfKeepsThatFile) {
    settings_.noteFolder = kFolder;
    ASSERT_TRUE(note_.SetText(u"Milk"));
    note_.Saver().SetStorageCopy({kFolder + u"\\Milk.qln", 0});  // deleted by another program
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(Content(kFolder + u"\\Milk.qln").substr(0, 6), "Milk\r\n");
}

TEST_F(OpenNoteLeaving, AStorageCopyThatIsOpenElsewhereIsDeletedLater) {
    ShowStored(u"Milk");
    const std::u16string copy = note_.Data().StoragePath;
    files_.FailPath(copy);
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_TRUE(StorageExists());
    EXPECT_EQ(store_.Journal().Unfinished().size(), 1U) << "for the next start";
    files_.HealPath(copy);
    store_.RetryDeletions();
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(store_.Journal().Unfinished().empty());
}

TEST_F(OpenNoteLeaving, FilesPreparedForAStorageCopyAreDeletedBeforeIt) {
    ShowStored(u"Milk");
    files_.Put(note_.Data().StoragePath + u".new", "later");
    files_.log.clear();
    note_.DestroyNote();
    EXPECT_EQ(files_.FileCount(), 0U);
    EXPECT_EQ(files_.log.front(), u"Delete " + kFolder + files_.log.back().substr(7 + kFolder.size()) + u".new");
}

TEST_F(OpenNoteLeaving, ANoteClosedWhileItsFileIsRecycledIsNotUsedAgain) {
    PumpingShell shell(files_, owner_);
    NoteStore store{files_, locale_, shell, names_, kFolder};
    FakeNoteView view;
    OpenNote note{{settings_, os_, kFolder, store, timers_, failures_, locale_, clock_, notice_, owner_, printer_,
                   mail_, registry_},
                  kKey};
    note.AttachView(view);
    ASSERT_TRUE(note.SetText(u"Milk"));
    note.MarkChanged();
    ASSERT_TRUE(note.PersistNote());
    note.DeleteNote();
    EXPECT_EQ(shell.recycled.size(), 1U);
    EXPECT_TRUE(StorageExists());
    EXPECT_FALSE(view.IsClosed());
    EXPECT_TRUE(notice_.sounds.empty());
}

TEST_F(OpenNoteLeaving, QuickDeleteNeverAsks) {
    const struct {
        const char16_t* text;
        bool keepNothing;
        std::size_t recycled;
    } cases[] = {{u"Milk", false, 1}, {u" ", false, 1}, {u"", false, 0}, {u"Milk", true, 0}, {u"", true, 0}};
    for (const auto& c : cases) {
        settings_.dontRecycleNotes = c.keepNothing;
        FakeNoteView view;
        FakeNoteOwner owner;
        OpenNote note{{settings_, os_, kFolder, store_, timers_, failures_, locale_, clock_, notice_, owner, printer_,
                       mail_, registry_},
                      kKey};
        note.AttachView(view);
        ASSERT_TRUE(note.SetText(c.text));
        note.MarkChanged();
        ASSERT_TRUE(note.PersistNote());
        shell_.recycled.clear();
        note.QuickDelete();
        EXPECT_FALSE(owner.IsOpen(kKey));
        EXPECT_TRUE(view.IsClosed());
        EXPECT_EQ(shell_.recycled.size(), c.recycled);
        EXPECT_TRUE(notice_.questions.empty());
        EXPECT_TRUE(SavedFiles().empty());
        EXPECT_FALSE(StorageExists());
    }
}

TEST_F(OpenNoteLeaving, DestroyingIgnoresAStorageCopyThatCannotBeDeleted) {
    note_.Saver().SetStorageCopy({kFolder + u"\\gone.qln", 0});
    note_.DestroyNote();
    EXPECT_TRUE(IsDestroyed());
}

}  // namespace
}  // namespace quillo
