#include <gtest/gtest.h>

#include "fault_fixture.h"
#include "util/text.h"

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
    Note().CloseNote();
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
    Note().CloseNote();
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
    Note().CloseNote();
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
    Note().CloseNote();
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

}  // namespace
}  // namespace quillo
