#include <gtest/gtest.h>

#include "fault_fixture.h"
#include "util/content_hash.h"
#include "util/text.h"
#include "util/unicode.h"

namespace quillo {
namespace {

/// A program with one stored note, whose storage copy another program opens.
class LockedCopyTest : public FaultTest {
  protected:
    [[nodiscard]] std::u16string Copy() { return Note().Data().StoragePath; }
    [[nodiscard]] std::u16string TextAt(const std::u16string& path) {
        const auto bytes = test_->files.Read(path);
        return bytes ? ParseNoteFile(*bytes, test_->locale).text : u"(none)";
    }
    [[nodiscard]] std::size_t Records() { return test_->store.Journal().Unfinished().size(); }
    [[nodiscard]] OpenNote& LastNote() { return test_->views.Note(test_->views.Count() - 1); }
};

// A closed note whose storage copy is opened again.

TEST_F(LockedCopyTest, AReopenedCopyKeepsWhatIsTypedIntoIt) {
    const std::u16string copy = Copy();
    test_->files.HoldShared(copy);
    Note().Perform(NoteAction::Close);
    ASSERT_EQ(test_->opening.OpenNoteFile(copy), OpenOutcome::Done);
    test_->files.ReleaseShared(copy);
    ASSERT_TRUE(LastNote().SetText(u"new text"));
    LastNote().MarkChanged();
    EXPECT_TRUE(test_->quit.Run(QuitReason::Command));
    EXPECT_EQ(TextAt(copy), u"new text");
    EXPECT_EQ(Records(), 0U);
}

TEST_F(LockedCopyTest, AReopenedCopyThatDoesNotChangeStaysOpen) {
    const std::u16string copy = Copy();
    test_->files.HoldShared(copy);
    Note().Perform(NoteAction::Close);
    ASSERT_EQ(test_->opening.OpenNoteFile(u"\"" + FoldAscii(copy) + u"\""), OpenOutcome::Done);
    test_->files.ReleaseShared(copy);
    EXPECT_EQ(Records(), 0U) << "the next start must not close it";
    EXPECT_TRUE(test_->quit.Run(QuitReason::Command));
    EXPECT_EQ(TextAt(copy), kText);
    EXPECT_EQ(Restart().open, 1U);
}

TEST_F(LockedCopyTest, ACopyThatAnotherProgramHasChangedIsNotDeletedLater) {
    const std::u16string copy = Copy();
    test_->files.HoldShared(copy);
    Note().Perform(NoteAction::Close);
    test_->files.ReleaseShared(copy);
    test_->files.Put(copy, "edited elsewhere");
    EXPECT_TRUE(test_->quit.Run(QuitReason::Command));
    EXPECT_EQ(test_->files.Read(copy), "edited elsewhere");
    EXPECT_EQ(Records(), 0U);
}

// A closed note stays closed.

TEST_F(LockedCopyTest, AClosedNoteStaysClosedWhileItsCopyCanOnlyBeRead) {
    const std::u16string copy = Copy();
    test_->files.HoldShared(copy);
    Note().Perform(NoteAction::Close);
    for (int start = 0; start < 2; ++start) {
        const Outcome outcome = Restart();
        EXPECT_EQ(outcome.open, 0U) << start;
        EXPECT_EQ(outcome.outside, 1U) << start;
        EXPECT_TRUE(test_->files.FileExists(copy)) << start;
    }
    test_->files.ReleaseShared(copy);
    EXPECT_TRUE(test_->quit.Run(QuitReason::Command));
    EXPECT_FALSE(test_->files.FileExists(copy));
    EXPECT_EQ(Records(), 0U);
}

TEST_F(LockedCopyTest, ADeletedNoteDoesNotComeBack) {
    const std::u16string copy = Copy();
    test_->files.FailPath(copy);
    Note().Perform(NoteAction::QueryDelete);
    test_->files.HealPath(copy);
    const Outcome outcome = Restart();
    EXPECT_EQ(outcome.open, 0U);
    EXPECT_EQ(outcome.recycled, 1U);
    EXPECT_EQ(leftovers_, 0U);
    EXPECT_FALSE(test_->files.FileExists(copy));
}

TEST_F(LockedCopyTest, AClosedNoteWhoseFileTheUserEditsDoesNotComeBack) {
    const std::u16string copy = Copy();
    test_->files.FailPath(copy);
    Note().Perform(NoteAction::Close);
    test_->files.HealPath(copy);
    const auto closed = test_->files.List(kTestDesktop, kNoteExtension);
    ASSERT_EQ(closed.size(), 1U);
    test_->files.Put(closed[0].path, EncodeUtf8(kText));
    const Outcome outcome = Restart();
    EXPECT_EQ(outcome.open, 0U);
    EXPECT_EQ(outcome.outside, 1U);
    EXPECT_EQ(leftovers_, 0U);
}

TEST_F(LockedCopyTest, AClosedNoteStaysClosedWhileItsCopyCannotBeRead) {
    const std::u16string copy = Copy();
    test_->files.FailPath(copy);
    Note().Perform(NoteAction::Close);
    static_cast<void>(test_->recovery.Run());
    EXPECT_EQ(Restart().open, 0U);
    test_->late.Begin();
    test_->files.HealPath(copy);
    test_->timers.Pass(60'000);
    EXPECT_EQ(test_->program.openNotes.Count(), 0U) << "it is no note that waits for its file";
    EXPECT_TRUE(test_->quit.Run(QuitReason::Command));
    EXPECT_FALSE(test_->files.FileExists(copy));
    EXPECT_EQ(Records(), 0U);
}

TEST_F(LockedCopyTest, AnInterruptedStepWaitsUntilItsFilesCanBeRead) {
    for (const auto kind : {PendingStep::Kind::Move, PendingStep::Kind::Recycle}) {
        Fresh();
        const std::u16string copy = Copy();
        const std::u16string closed = JoinPath(kTestDesktop, u"Buy milk.qln");
        const std::string bytes = EncodeUtf8(kText);
        test_->files.Put(closed, bytes);
        ASSERT_NE(test_->store.Journal().Begin(
                      {kind, {}, Note().Saver().StorageCopy(), FileVersion{closed, ContentHash(bytes)}}),
                  u"");
        for (const std::u16string& locked : {closed, copy}) {
            test_->files.FailPath(locked);
            EXPECT_EQ(Restart().open, 0U);
            EXPECT_TRUE(test_->quit.Run(QuitReason::Command));
            EXPECT_TRUE(test_->files.FileExists(closed));
            EXPECT_TRUE(test_->files.FileExists(copy)) << "the other file is not known to be complete";
            test_->files.HealPath(locked);
        }
        const Outcome outcome = Restart();
        EXPECT_EQ(outcome.open, 0U);
        EXPECT_EQ(outcome.outside + outcome.recycled, 1U);
        EXPECT_EQ(outcome.recycled, kind == PendingStep::Kind::Recycle ? 1U : 0U);
        EXPECT_EQ(leftovers_, 0U);
    }
}

TEST_F(LockedCopyTest, APreparedFileThatIsAloneDoesNotBringAClosedNoteBack) {
    test_->files.Put(Copy() + u".2.new", *test_->files.Read(Copy()));
    Note().Perform(NoteAction::Close);
    EXPECT_EQ(Restart().open, 0U);
    EXPECT_EQ(leftovers_, 0U);
}

TEST_F(LockedCopyTest, ASourceWhoseTextIsNotKeptSurvivesAnyKill) {
    const std::u16string source = u"D:\\Source.qln";
    for (int calls = 0; calls < 12; ++calls) {
        Fresh();
        Note().DestroyNote();
        test_->files.Put(source, "(new)");
        test_->files.CutPowerAfter(calls);
        test_->opening.OpenNoteFile(source);
        static_cast<void>(Restart());
        EXPECT_EQ(test_->files.Read(source), "(new)") << calls;
        EXPECT_EQ(leftovers_, 0U) << calls;
    }
}

// Rescued notes.

class LockedRescueTest : public LockedCopyTest {
  protected:
    /// A changed note is rescued, and its storage copy can be written again afterwards.
    void SetUp() override {
        LockedCopyTest::SetUp();
        copy_ = Copy();
        test_->files.FailPath(copy_, FileError::NoPermission);
        ASSERT_TRUE(Note().SetText(u"changed"));
        Note().MarkChanged();
        ASSERT_TRUE(test_->quit.Run(QuitReason::Command));
        test_->files.HealPath(copy_);
        ASSERT_EQ(test_->files.List(kTestDesktop, kNoteExtension).size(), 1U);
        rescued_ = test_->files.List(kTestDesktop, kNoteExtension)[0].path;
    }
    void ExpectRestored() {
        const Recovery::Result result = test_->recovery.Run();
        EXPECT_EQ(result.restored, 1);
        EXPECT_TRUE(result.files.empty());
        EXPECT_EQ(TextAt(copy_), u"changed");
        EXPECT_FALSE(test_->files.FileExists(rescued_));
        EXPECT_EQ(Records(), 0U);
    }

    std::u16string copy_;
    std::u16string rescued_;
};

TEST_F(LockedRescueTest, ARescuedFileThatCannotBeReadIsRestoredLater) {
    test_->files.FailPath(rescued_);
    EXPECT_EQ(test_->recovery.Run().restored, 0);
    test_->files.HealPath(rescued_);
    ExpectRestored();
}

TEST_F(LockedRescueTest, ANoteWhoseStorageCopyCannotBeReadIsRestoredLater) {
    test_->files.FailPath(copy_);
    const Recovery::Result result = test_->recovery.Run();
    EXPECT_EQ(result.restored, 0);
    EXPECT_TRUE(result.files.empty()) << "it would be a second note";
    test_->files.HealPath(copy_);
    ExpectRestored();
}

}  // namespace
}  // namespace quillo
