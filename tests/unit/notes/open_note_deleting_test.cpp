#include "open_note_fixture.h"

#include <algorithm>

namespace quillo {
namespace {

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

class OpenNoteDeleting : public OpenNoteTest {
  protected:
    /// Opens and stores another note, whose window is then windows_.Last(), and deletes it with that shell.
    void DeleteWith(Shell& shell) {
        NoteStore store{files_, locale_, shell, names_, kFolder};
        const std::unique_ptr<OpenNote> note = OpenNote::Open(
            owner_, {settings_, {store, timers_, failures_}, dates_, notice_, hints_, sharing_}, kKey, windows_);
        ASSERT_TRUE(note->SetText(u"Milk"));
        note->MarkChanged();
        ASSERT_TRUE(note->PersistNote());
        note->Perform(NoteAction::QueryDelete);
        closed_ = windows_.Last().IsClosed();
    }
    bool closed_ = false;  ///< whether that note has closed its window
};

TEST_F(OpenNoteDeleting, DeletingPutsANoteFileIntoTheRecycleBin) {
    ShowStored(u"Milk");
    note_.Perform(NoteAction::QueryDelete);
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
TEST_F(OpenNoteDeleting, DeletingWritesAFileOfAnEmptyNoteToo) {
    ShowStored(u"");
    note_.Perform(NoteAction::QueryDelete);
    EXPECT_TRUE(IsDestroyed());
    ASSERT_EQ(shell_.recycled.size(), 1U);
    EXPECT_TRUE(shell_.recycled.front().path.ends_with(u"\\Note 1.qln"));
}

TEST_F(OpenNoteDeleting, DeletingPermanentlyAsksFirst) {
    settings_.dontRecycleNotes = true;
    ShowStored(u"Milk");
    notice_.answer = false;
    note_.Perform(NoteAction::QueryDelete);
    EXPECT_FALSE(IsDestroyed());
    EXPECT_TRUE(StorageExists());
    ASSERT_EQ(notice_.questions.size(), 1U);
    EXPECT_EQ(notice_.questions[0].text,
              u"This action will permanently delete this note, and you will not be able to get it back.  Only click OK "
              u"if you are sure that you do not want this note anymore; otherwise, click Cancel.");
    EXPECT_EQ(notice_.questions[0].question, Question::OkCancelDefaultCancel);

    notice_.answer = true;
    note_.Perform(NoteAction::QueryDelete);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(shell_.recycled.empty());
    EXPECT_TRUE(SavedFiles().empty());
}

TEST_F(OpenNoteDeleting, ANoteClosedDuringTheDeleteQuestionIsNotRecycled) {
    settings_.dontRecycleNotes = true;
    ShowStored(u"Milk");
    notice_.answer = true;
    notice_.onAsk = [this] {
        settings_.dontRecycleNotes = false;
        owner_.RemoveNote(kKey);
    };
    note_.Perform(NoteAction::QueryDelete);
    EXPECT_TRUE(shell_.recycled.empty());
    EXPECT_TRUE(StorageExists());
}

TEST_F(OpenNoteDeleting, ADeletedNoteThatCannotBeSavedAnywhereIsLostOnlyOnYes) {
    ShowStored(u"Milk");
    files_.FailWrites(true);
    notice_.answer = false;
    note_.Perform(NoteAction::QueryDelete);
    EXPECT_FALSE(IsDestroyed());
    EXPECT_TRUE(StorageExists());
    ASSERT_EQ(notice_.questions.size(), 1U);
    EXPECT_EQ(notice_.questions[0].question, Question::YesNoDefaultNo);

    notice_.answer = true;
    note_.Perform(NoteAction::QueryDelete);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(shell_.recycled.empty());
}

TEST_F(OpenNoteDeleting, ADeletedNoteThatItsFolderRefusesIsKeptElsewhere) {
    ShowStored(u"Milk");
    files_.RemoveFolder(kDocuments);
    note_.Perform(NoteAction::QueryDelete);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_TRUE(shell_.recycled.empty());
    EXPECT_EQ(Content(u"C:\\Users\\ann\\Desktop\\Milk.qln").substr(0, 6), "Milk\r\n");
    ASSERT_EQ(notice_.balloons.size(), 1U);
    EXPECT_TRUE(notice_.questions.empty());
}

TEST_F(OpenNoteDeleting, AFileThatTheSystemDeletedPermanentlyIsWrittenAgain) {
    shell_.recycling = RecycleResult::Gone;
    ShowStored(u"Milk");
    note_.Perform(NoteAction::QueryDelete);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_EQ(Content(kDocuments + u"\\Milk.qln").substr(0, 6), "Milk\r\n");
    ASSERT_EQ(notice_.balloons.size(), 1U);
    EXPECT_NE(notice_.balloons[0].text.find(kDocuments + u"\\Milk.qln"), std::u16string::npos);
}

TEST_F(OpenNoteDeleting, AFileOfTheUsersOwnIsTheirOwnAgainAfterTheSystemDeletedIt) {
    shell_.recycling = RecycleResult::Gone;
    ShowStored(u"Milk");
    const std::u16string own = kDocuments + u"\\Shopping.qln";
    note_.SetFileName(own);
    note_.Perform(NoteAction::QueryDelete);
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

TEST_F(OpenNoteDeleting, ANoteThatTheBinLostAndNoDiskAcceptsIsKeptUnlessTheUserGivesItUp) {
    LosingShell shell(files_);
    notice_.answer = false;
    ASSERT_NO_FATAL_FAILURE(DeleteWith(shell));
    EXPECT_TRUE(owner_.IsOpen(kKey));
    EXPECT_TRUE(StorageExists());
    EXPECT_EQ(notice_.questions.size(), 1U);
}

TEST_F(OpenNoteDeleting, AFileThatTheRecycleBinRefusesStays) {
    shell_.recycling = RecycleResult::Stays;
    ShowStored(u"Milk");
    note_.Perform(NoteAction::QueryDelete);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{kDocuments + u"\\Milk.qln"});
    EXPECT_EQ(notice_.balloons.size(), 1U);
}

TEST_F(OpenNoteDeleting, TheOnlyFileOfANoteIsNeverDeleted) {
    const std::u16string path = kFolder + u"\\Own.qln";
    ASSERT_TRUE(note_.SetText(u"Milk"));
    note_.Saver().SetStorageCopy({path, 0});
    note_.SetFileName(kFolder + u"\\OWN.qln");  // in the same place, and deleted from there by another program
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(Content(kDocuments + u"\\Milk.qln").substr(0, 6), "Milk\r\n");
}

TEST_F(OpenNoteDeleting, ANoteClosedIntoTheNotesFolderItselfKeepsThatFile) {
    settings_.noteFolder = kFolder;
    ASSERT_TRUE(note_.SetText(u"Milk"));
    note_.Saver().SetStorageCopy({kFolder + u"\\Milk.qln", 0});  // deleted by another program
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(Content(kFolder + u"\\Milk.qln").substr(0, 6), "Milk\r\n");
}

TEST_F(OpenNoteDeleting, AStorageCopyThatIsOpenElsewhereIsDeletedLater) {
    ShowStored(u"Milk");
    const std::u16string copy = note_.Data().StoragePath;
    files_.FailPath(copy);
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_TRUE(StorageExists());
    EXPECT_EQ(store_.Journal().Unfinished().size(), 1U) << "for the next start";
    files_.HealPath(copy);
    store_.RetryDeletions();
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(store_.Journal().Unfinished().empty());
}

TEST_F(OpenNoteDeleting, FilesPreparedForAStorageCopyAreDeletedBeforeIt) {
    ShowStored(u"Milk");
    files_.Put(note_.Data().StoragePath + u".new", "later");
    files_.log.clear();
    note_.DestroyNote();
    EXPECT_EQ(files_.FileCount(), 0U);
    EXPECT_EQ(files_.log.front(), u"Delete " + kFolder + files_.log.back().substr(7 + kFolder.size()) + u".new");
}

TEST_F(OpenNoteDeleting, ANoteClosedWhileItsFileIsRecycledIsNotUsedAgain) {
    PumpingShell shell(files_, owner_);
    ASSERT_NO_FATAL_FAILURE(DeleteWith(shell));
    EXPECT_EQ(shell.recycled.size(), 1U);
    EXPECT_TRUE(StorageExists());
    EXPECT_FALSE(closed_);
    EXPECT_TRUE(notice_.sounds.empty());
}

TEST_F(OpenNoteDeleting, QuickDeleteNeverAsks) {
    const struct {
        const char16_t* text;
        bool keepNothing;
        std::size_t recycled;
    } cases[] = {{u"Milk", false, 1}, {u" ", false, 1}, {u"", false, 0}, {u"Milk", true, 0}, {u"", true, 0}};
    for (const auto& c : cases) {
        settings_.dontRecycleNotes = c.keepNothing;
        FakeNoteOwner owner;
        const std::unique_ptr<OpenNote> opened = OpenNote::Open(
            owner, {settings_, {store_, timers_, failures_}, dates_, notice_, hints_, sharing_}, kKey, windows_);
        OpenNote& note = *opened;
        FakeNoteWindow& view = windows_.Last();
        ASSERT_TRUE(note.SetText(c.text));
        note.MarkChanged();
        ASSERT_TRUE(note.PersistNote());
        shell_.recycled.clear();
        note.Perform(NoteAction::QuickDelete);
        EXPECT_FALSE(owner.IsOpen(kKey));
        EXPECT_TRUE(view.IsClosed());
        EXPECT_EQ(shell_.recycled.size(), c.recycled);
        EXPECT_TRUE(notice_.questions.empty());
        EXPECT_TRUE(SavedFiles().empty());
        EXPECT_FALSE(StorageExists());
    }
}

TEST_F(OpenNoteDeleting, DestroyingIgnoresAStorageCopyThatCannotBeDeleted) {
    note_.Saver().SetStorageCopy({kFolder + u"\\gone.qln", 0});
    note_.DestroyNote();
    EXPECT_TRUE(IsDestroyed());
}

}  // namespace
}  // namespace quillo
