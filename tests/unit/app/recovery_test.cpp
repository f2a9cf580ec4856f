#include "app/recovery.h"

#include <gtest/gtest.h>

#include <new>
#include <utility>

#include "fault_fixture.h"
#include "util/content_hash.h"
#include "util/unicode.h"

namespace quillo {
namespace {

TEST_F(FaultTest, ClosingNeitherLosesNorDoublesANote) {
    CutPowerEverywhere([] {}, [this] { Note().Perform(NoteAction::Close); },
                       [](const Outcome& o) { return o.open + o.outside == 1; });
}

TEST_F(FaultTest, DeletingNeitherLosesNorDoublesANote) {
    // Between the shell's move and the deletion of the storage copy, nothing records where the file is: the note is
    // then open, and in the bin.
    CutPowerEverywhere([] {}, [this] { Note().Perform(NoteAction::QueryDelete); },
                       [](const Outcome& o) { return o.open + o.recycled >= 1 && o.open <= 1 && o.outside == 0; });
}

TEST_F(FaultTest, OpeningASourceNeitherLosesNorDoublesANote) {
    const std::u16string source = u"D:\\Source.qln";
    CutPowerEverywhere(
        [&] {
            Note().DestroyNote();
            test_->files.Put(source, EncodeUtf8(kText));
        },
        [&] { test_->opening.OpenNoteFile(source); }, [](const Outcome& o) { return o.open + o.outside == 1; });
}

TEST_F(FaultTest, AMoveWhoseTargetWasOnlyPreparedIsFinished) {
    const std::u16string source = u"D:\\Source.qln";
    const std::u16string copy = TestProgram::Stored(u"new.qln");
    Note().DestroyNote();
    test_->files.Put(source, EncodeUtf8(kText));
    NoteFile note;
    note.text = kText;
    const std::string bytes = *test_->store.FormatStorageCopy(note);
    ASSERT_NE(test_->store.Journal().Begin(
                  {PendingStep::Kind::Move, {}, {source, ContentHash(EncodeUtf8(kText))}, {copy, ContentHash(bytes)}}),
              u"");
    test_->files.Put(copy + u".new", bytes);
    const Outcome outcome = Restart();
    EXPECT_EQ(outcome.open, 1U);
    EXPECT_EQ(outcome.outside, 0U);
    EXPECT_EQ(leftovers_, 0U);
}

TEST_F(FaultTest, SavingNeverLosesTheLastStoredText) {
    CutPowerEverywhere([this] { Note().MarkChanged(); }, [this] { Note().PersistNote(); },
                       [](const Outcome& o) { return o.open == 1; });
}

TEST_F(FaultTest, AFailureOfAnyCallWhileClosingKeepsTheNote) {
    for (int calls = 0; calls < 20; ++calls) {
        Fresh();
        test_->notice.answer = false;
        test_->files.FailAfter(calls);
        Note().Perform(NoteAction::Close);
        const Outcome outcome = Restart();
        EXPECT_EQ(outcome.open + outcome.outside, 1U) << calls;
        EXPECT_EQ(outcome.torn, 0U) << calls;
    }
}

// Rescued notes.

class RescueTest : public FaultTest {
  protected:
    void ChangeUnsaved() {
        test_->files.FailPath(Note().Data().StoragePath, FileError::NoPermission);
        ASSERT_TRUE(Note().SetText(u"changed " + kText));
        Note().MarkChanged();
    }
};

TEST_F(RescueTest, AQuitWritesUnsavableNotesToTheNoteFolderAndTheNextStartRestoresThem) {
    const std::u16string copy = Note().Data().StoragePath;
    ChangeUnsaved();
    EXPECT_TRUE(test_->quit.Run(QuitReason::Command));
    test_->files.HealPath(copy);
    const auto rescued = test_->files.List(kTestDesktop, kNoteExtension);
    ASSERT_EQ(rescued.size(), 1U);

    for (int start = 0; start < 2; ++start) {
        const Recovery::Result result = test_->recovery.Run();
        EXPECT_EQ(result.restored, start == 0 ? 1 : 0);
        EXPECT_TRUE(result.files.empty());
        EXPECT_FALSE(test_->files.FileExists(rescued[0].path));
        EXPECT_EQ(ParseNoteFile(*test_->files.Read(copy), test_->locale).text, u"changed " + kText);
    }
}

TEST_F(RescueTest, ARescuedNoteWhoseStorageCopyHasChangedIsOpenedBesideIt) {
    const std::u16string copy = Note().Data().StoragePath;
    ChangeUnsaved();
    EXPECT_TRUE(test_->quit.Run(QuitReason::SessionEnd));
    test_->files.HealPath(copy);
    test_->files.Put(copy, "edited elsewhere");
    const Recovery::Result result = test_->recovery.Run();
    EXPECT_EQ(result.files.size(), 1U);
    EXPECT_EQ(test_->files.Read(copy), "edited elsewhere");
    EXPECT_TRUE(test_->recovery.Run().files.empty());
}

TEST_F(RescueTest, NoPowerCutDuringTheRecoveryLosesOrDoublesANote) {
    for (int calls = 0; calls < 20; ++calls) {
        Fresh();
        const std::u16string copy = Note().Data().StoragePath;
        test_->files.FailPath(copy, FileError::NoPermission);
        Note().MarkChanged();
        ASSERT_TRUE(test_->quit.Run(QuitReason::Command));
        test_->files.HealPath(copy);
        test_->files.CutPowerAfter(calls);
        static_cast<void>(test_->recovery.Run());
        const Outcome outcome = Restart();
        EXPECT_EQ(outcome.open, 1U) << calls;
        EXPECT_EQ(outcome.outside, 0U) << calls;
        EXPECT_EQ(outcome.torn, 0U) << calls;
    }
}

TEST_F(RescueTest, AUserIsAskedBeforeATextIsLost) {
    ChangeUnsaved();
    test_->files.FailWrites(true);
    test_->notice.answer = false;
    EXPECT_FALSE(test_->quit.Run(QuitReason::User));
    EXPECT_FALSE(test_->program.quitting);
    EXPECT_EQ(test_->program.openNotes.Count(), 1U);
    ASSERT_EQ(test_->notice.questions.size(), 1U);
    EXPECT_EQ(test_->notice.questions[0].question, Question::YesNoDefaultNo);
    EXPECT_TRUE(test_->quit.Run(QuitReason::Command)) << "nobody can be asked";
}

TEST_F(RescueTest, AUserWhoKeepsTheProgramRunningFindsNoCopies) {
    ChangeUnsaved();
    NoteFile second;
    second.text = u"second";
    OpenNote* other = test_->opening.CreateNote(second);
    other->Saver().ChooseStoragePath();
    test_->files.FailPath(other->Data().StoragePath);
    other->MarkChanged();
    // The first rescue needs all the free space.
    test_->files.SetCapacity(0);
    test_->notice.answer = false;
    EXPECT_FALSE(test_->quit.Run(QuitReason::User));
    EXPECT_TRUE(test_->files.List(kTestDesktop, kNoteExtension).empty());
}

// Prepared storage copies.

class PreparedTest : public testing::Test {
  protected:
    std::string Copy(std::u16string_view text) {
        NoteFile note;
        note.text = text;
        return test_.store.FormatStorageCopy(note).value_or("");
    }
    std::u16string TextAt(const std::u16string& path) {
        const auto bytes = test_.files.Read(path);
        return bytes ? ParseNoteFile(*bytes, test_.locale).text : u"(none)";
    }

    TestProgram test_;
    const std::u16string copy_ = TestProgram::Stored(u"a.qln");
};

TEST_F(PreparedTest, ACompleteOneReplacesAMissingOrOlderCopy) {
    test_.files.Put(copy_ + u".new", Copy(u"new"));
    static_cast<void>(test_.recovery.Run());
    EXPECT_EQ(TextAt(copy_), u"new");

    test_.files.Put(copy_ + u".2.new", Copy(u"newer \u65E5"));
    static_cast<void>(test_.recovery.Run());
    EXPECT_EQ(TextAt(copy_), u"newer \u65E5");
    EXPECT_EQ(TextAt(copy_ + u".old"), u"new") << "kept until the next start";
    static_cast<void>(test_.recovery.Run());
    EXPECT_FALSE(test_.files.FileExists(copy_ + u".old"));
    EXPECT_EQ(TextAt(copy_), u"newer \u65E5");
}

TEST_F(PreparedTest, TheRestIsRemoved) {
    test_.files.Put(copy_ + u".new", Copy(u"older"));
    test_.files.Put(copy_, Copy(u"current"));
    const std::string whole = Copy(u"torn");
    test_.files.Put(copy_ + u".2.new", whole.substr(0, whole.size() - 1));
    test_.files.Put(copy_ + u".3.new", "");
    static_cast<void>(test_.recovery.Run());
    EXPECT_EQ(TextAt(copy_), u"current");
    EXPECT_TRUE(test_.files.PathsEndingIn(u".new").empty());
}

TEST_F(PreparedTest, OtherFilesAreNotChanged) {
    for (const auto* name : {u"a.txt.new", u"b.new", u"c.old", u"d.qln.x.new"}) {
        test_.files.Put(TestProgram::Stored(name), "mine");
    }
    static_cast<void>(test_.recovery.Run());
    EXPECT_EQ(test_.files.FileCount(), 4U);
}

// Notes that a start does not wait for.

class LateNotesTest : public testing::Test {
  protected:
    TestProgram test_;
};

TEST_F(LateNotesTest, LargeFilesAreOpenedOneAtATimeAfterwards) {
    for (const auto* name : {u"a.qln", u"b.qln"}) test_.files.Put(TestProgram::Stored(name), std::string(300'000, 'x'));
    test_.files.Put(TestProgram::Stored(u"c.qln"), "small");
    for (const FileEntry& file : test_.files.List(kTestNotesFolder, kNoteExtension))
        test_.late.Open(file.path, file.size);
    test_.late.Begin();
    ASSERT_EQ(test_.program.openNotes.Count(), 1U);
    EXPECT_EQ(test_.views.Note(0).Text(), u"small");
    test_.timers.Pass(10);
    EXPECT_EQ(test_.program.openNotes.Count(), 2U);
    test_.timers.Pass(10);
    EXPECT_EQ(test_.program.openNotes.Count(), 3U);
    EXPECT_EQ(test_.timers.Running(), 0U);
}

TEST_F(LateNotesTest, ALargeFileThatIsOpenAlreadyIsNotOpenedTwice) {
    const std::u16string path = TestProgram::Stored(u"a.qln");
    test_.files.Put(path, std::string(300'000, 'x'));
    test_.late.Open(path, 300'000);
    test_.late.Begin();
    test_.opening.OpenNoteFile(path);
    test_.timers.Pass(10);
    EXPECT_EQ(test_.program.openNotes.Count(), 1U);
}

TEST_F(LateNotesTest, AFileThatIsTooLargeIsNamed) {
    const std::u16string path = TestProgram::Stored(u"huge.qln");
    test_.files.Put(path, std::string(kLargestNoteFile + 1, 'x'));
    test_.late.Open(path, kLargestNoteFile + 1);
    test_.late.Begin();
    test_.timers.Pass(10);
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
    ASSERT_EQ(test_.notice.balloons.size(), 1U);
    EXPECT_NE(test_.notice.balloons[0].text.find(u"huge.qln"), std::u16string::npos);
    EXPECT_TRUE(test_.files.FileExists(path));
}

TEST_F(LateNotesTest, ALockedFileIsTriedAgainDuringTheFirstMinute) {
    test_.program.settings.autoPinNewNotes = true;
    const std::u16string path = TestProgram::Stored(u"a.qln");
    test_.files.Put(path, "text");
    test_.files.FailPath(path);
    test_.late.Open(path, 4);
    test_.late.Begin();
    test_.timers.Pass(30'000);
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
    test_.files.HealPath(path);
    test_.timers.Pass(10'000);
    ASSERT_EQ(test_.program.openNotes.Count(), 1U);
    EXPECT_FALSE(test_.views.Note(0).Data().Pinned) << "as if it were still loading";
}

TEST_F(LateNotesTest, AFileThatStaysLockedIsGivenUpAfterAMinute) {
    const std::u16string path = TestProgram::Stored(u"a.qln");
    test_.files.Put(path, "text");
    test_.files.FailPath(path);
    test_.late.Open(path, 4);
    test_.late.Begin();
    test_.timers.Pass(70'000);
    EXPECT_EQ(test_.timers.Running(), 0U);
}

TEST_F(LateNotesTest, AnErrorAffectsOneFileOnly) {
    test_.files.Put(TestProgram::Stored(u"a.qln"), "a");
    test_.files.Put(TestProgram::Stored(u"b.qln"), "b");
    bool failed = false;
    test_.views.onMake = [&failed] {
        if (!std::exchange(failed, true)) throw std::bad_alloc();
    };
    for (const FileEntry& file : test_.files.List(kTestNotesFolder, kNoteExtension))
        test_.late.Open(file.path, file.size);
    ASSERT_EQ(test_.program.openNotes.Count(), 1U);
    EXPECT_EQ(test_.views.Note(0).Text(), u"b");
    EXPECT_EQ(test_.files.Read(TestProgram::Stored(u"a.qln")), "a");
}

// Messages.

TEST(SaveFailures, ReportOnceForAllNotes) {
    TestProgram test;
    test.failures.NoteCannotBeSaved(u"a", FileError::DiskFull);
    test.failures.NoteCannotBeSaved(u"b", FileError::DiskFull);
    EXPECT_EQ(test.notice.balloons.size(), 1U);
    test.failures.NoteIsSavedAgain(u"a");
    test.failures.NoteCannotBeSaved(u"c", FileError::DiskFull);
    EXPECT_EQ(test.notice.balloons.size(), 1U) << "the trouble has not ended";
    test.failures.NoteIsSavedAgain(u"b");
    test.failures.NoteIsSavedAgain(u"c");
    test.program.settings.disableBalloonHelp = true;
    test.failures.NoteCannotBeSaved(u"a", FileError::DiskFull);
    EXPECT_EQ(test.notice.balloons.size(), 1U);
}

}  // namespace
}  // namespace quillo
