#include "notes/note_saver.h"

#include <gtest/gtest.h>

#include <string>

#include "app/base/note_names.h"
#include "app/base/settings.h"
#include "testing/fake_file_store.h"
#include "testing/fake_locale_text.h"
#include "testing/fake_shell.h"
#include "testing/fake_timers.h"
#include "testing/recording_save_failures.h"

namespace quillo {
namespace {

const std::u16string kNotesFolder = u"C:\\Data\\Notes";

class NoteSaverTest : public ::testing::Test {
  protected:
    NoteSaverTest() {
        files_.PutFolder(kNotesFolder);
        note_.NoteKey = u"1A2B";
    }

    void Type(std::u16string_view text) {
        text_ += text;
        saver_.MarkChanged();
    }
    /// The text on the disk.
    std::u16string Stored() {
        const auto bytes = files_.Read(note_.StoragePath);
        return bytes ? ParseNoteFile(*bytes, locale_).text : u"(none)";
    }

    Settings settings_;
    FakeFileStore files_;
    FakeLocaleText locale_;
    FakeShell shell_{files_};
    NoteNames names_{files_, shell_, settings_};
    NoteStore store_{files_, locale_, shell_, names_, kNotesFolder};
    FakeTimers timers_;
    RecordingSaveFailures failures_;
    Note note_;
    std::u16string text_;
    FileError shown_ = FileError::None;
    NoteSaver saver_{{store_, timers_, failures_},
                     note_,
                     [this] {
                         NoteFile file;
                         file.text = text_;
                         return file;
                     },
                     [this](FileError error) { shown_ = error; }};
};

TEST_F(NoteSaverTest, SavesTwoSecondsAfterTheLastChange) {
    Type(u"a");
    timers_.Pass(1500);
    Type(u"b");
    timers_.Pass(1999);
    EXPECT_EQ(Stored(), u"(none)");
    timers_.Pass(1);
    EXPECT_EQ(Stored(), u"ab");
    EXPECT_FALSE(saver_.HasUnsavedChange());
    EXPECT_EQ(timers_.Running(), 0U) << "an idle note wakes nobody";
}

TEST_F(NoteSaverTest, AChangeStartsTheTimerThatThePreviousOneCouldNotStart) {
    timers_.refuse = true;
    Type(u"a");
    timers_.refuse = false;
    Type(u"b");
    timers_.Pass(2000);
    EXPECT_EQ(Stored(), u"ab");
}

TEST_F(NoteSaverTest, SavesFiveSecondsAfterTheFirstUnsavedChangeHoweverSteadilyTheUserTypes) {
    for (int i = 0; i < 40; ++i) {
        Type(u"x");
        timers_.Pass(300);
        const std::size_t stored = Stored() == u"(none)" ? 0 : Stored().size();
        ASSERT_LE((text_.size() - stored) * 300, 5300U);
    }
}

TEST_F(NoteSaverTest, ManyChangesInOnePauseStartTheTimerOnceAndAgainForTheRest) {
    for (int i = 0; i < 100; ++i) {
        Type(u"x");
        timers_.Pass(10);
    }
    EXPECT_EQ(timers_.Starts(), 1);
    timers_.Pass(1990);
    EXPECT_EQ(Stored().size(), 100U) << "two seconds after the last change";
    EXPECT_EQ(timers_.Starts(), 2);
    EXPECT_EQ(timers_.Ticks(), 2);
}

TEST_F(NoteSaverTest, AChangeWhileTheDiskRefusesTheNoteIsTriedAfterTheUsualPause) {
    files_.FailWrites(true);
    Type(u"a");
    timers_.Pass(2000);
    EXPECT_NE(shown_, FileError::None);
    files_.FailWrites(false);
    Type(u"b");
    timers_.Pass(2000);
    EXPECT_EQ(Stored(), u"ab");
}

TEST_F(NoteSaverTest, SavesDuringTheChangeWhenTheTimerCannotFire) {
    Type(u"a");
    timers_.PassWithoutTicks(4999);
    Type(u"b");
    EXPECT_EQ(Stored(), u"(none)");
    timers_.PassWithoutTicks(1);
    Type(u"c");
    EXPECT_EQ(Stored(), u"abc");
}

TEST_F(NoteSaverTest, TriesAgainEveryTenSecondsAndReportsOnce) {
    files_.FailWrites(true);
    Type(u"a");
    timers_.Pass(2000);
    EXPECT_EQ(shown_, FileError::DiskFull);
    EXPECT_FALSE(note_.Changed) << "intended, also after a failure";
    EXPECT_TRUE(saver_.HasUnsavedChange());
    timers_.Pass(60'000);
    EXPECT_EQ(failures_.errors, std::vector<FileError>{FileError::DiskFull});
    files_.FailWrites(false);
    timers_.Pass(10'000);
    EXPECT_EQ(Stored(), u"a");
    EXPECT_EQ(shown_, FileError::None);
    EXPECT_TRUE(failures_.failing.empty());
    EXPECT_TRUE(saver_.IsStored());
}

TEST_F(NoteSaverTest, AStorageCopyThatDisappearedIsWrittenAgain) {
    Type(u"a");
    ASSERT_TRUE(saver_.PersistNote());
    files_.Remove(note_.StoragePath);
    EXPECT_TRUE(saver_.PersistNote()) << "nothing has changed";
    EXPECT_EQ(Stored(), u"(none)");
    saver_.LookForStorageCopy();
    EXPECT_TRUE(saver_.PersistNote());
    EXPECT_EQ(Stored(), u"a");
}

TEST_F(NoteSaverTest, WritesNothingOnceItWasStopped) {
    Type(u"a");
    saver_.Stop();
    timers_.Pass(60'000);
    Type(u"b");
    EXPECT_FALSE(saver_.PersistNote());
    EXPECT_EQ(files_.FileCount(), 0U);
}

TEST_F(NoteSaverTest, NoSingleFailureOfTheDiskLosesTheText) {
    Type(u"old");
    ASSERT_TRUE(saver_.PersistNote());
    for (int calls = 0; calls < 4; ++calls) {
        Type(u" and new");
        files_.FailAfter(calls);
        const bool saved = saver_.PersistNote();
        files_.Revive();
        EXPECT_TRUE(Stored() == text_ || (!saved && text_.find(Stored()) == 0)) << calls;
        timers_.Pass(10'000);
        EXPECT_EQ(Stored(), text_) << calls;
        EXPECT_EQ(files_.PathsEndingIn(u".new").size(), calls == 1 ? 1U : files_.PathsEndingIn(u".new").size());
    }
}

}  // namespace
}  // namespace quillo
