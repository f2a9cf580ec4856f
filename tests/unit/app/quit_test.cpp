#include "app/quit.h"

#include <gtest/gtest.h>

#include <new>

#include "app/base/registry_keys.h"
#include "test_program.h"

namespace quillo {
namespace {

class QuitTest : public testing::Test {
  protected:
    QuitTest() { test_.registry.Put(kRunKey, kRunValue, test_.shell.programPath); }
    bool Quit() { return test_.quit.Run(QuitReason::User); }

    TestProgram test_;
};

TEST_F(QuitTest, SavesThenUnloadsEveryNote) {
    test_.FillUpTo(2);
    ASSERT_TRUE(test_.views.Note(0).SetText(u"typed"));
    test_.views.Note(0).MarkChanged();
    EXPECT_TRUE(Quit());
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
    ASSERT_EQ(test_.StoredFiles().size(), 1U);
    EXPECT_EQ(test_.files.Read(test_.StoredFiles()[0])->substr(0, 5), "typed");
    EXPECT_TRUE(test_.views.View(0).IsClosed());
    EXPECT_TRUE(test_.views.View(1).IsClosed());
}

TEST_F(QuitTest, TheRunValueIsDeletedOnRequestAndOnlyWithNoNoteOpen) {
    struct Case {
        int startupMode;
        std::size_t notes;
        bool stays;
    };
    const Case cases[] = {{0, 0, true}, {1, 0, false}, {2, 0, false}, {-1, 0, true}, {1, 1, true}, {0, 1, true}};
    for (const Case& c : cases) {
        TestProgram fresh;
        fresh.registry.Put(kRunKey, kRunValue, fresh.shell.programPath);
        fresh.registry.Put(kUserKey, u"Startup Mode", c.startupMode);
        fresh.FillUpTo(c.notes);
        EXPECT_TRUE(fresh.quit.Run(QuitReason::User));
        EXPECT_EQ(fresh.registry.HasValue(kRunKey, kRunValue), c.stays) << c.startupMode << " " << c.notes;
    }
}

TEST_F(QuitTest, AMissingStartupModeKeepsTheRunValue) {
    EXPECT_TRUE(Quit());
    EXPECT_TRUE(test_.registry.HasValue(kRunKey, kRunValue));
}

TEST_F(QuitTest, ASecondQuitDoesNothing) {
    test_.registry.Put(kUserKey, u"Startup Mode", 1);
    test_.FillUpTo(1);
    EXPECT_TRUE(Quit());
    EXPECT_FALSE(Quit());
    EXPECT_TRUE(test_.registry.HasValue(kRunKey, kRunValue)) << "a note was open when the program was asked to end";
}

// Memory is low.

class FailingNoteTest : public QuitTest {
  protected:
    FailingNoteTest() {
        test_.files.PutFolder(kTestDesktop);
        test_.FillUpTo(2);
        for (std::size_t i = 0; i < 2; ++i) {
            EXPECT_TRUE(test_.views.Note(i).SetText(u"typed"));
            test_.views.Note(i).MarkChanged();
        }
    }
    /// The next reads of the first note's text fail.
    void FailTextOfFirst(int times) {
        test_.views.View(0).onTextRead = [times]() mutable {
            if (times-- > 0) throw std::bad_alloc();
        };
    }
};

TEST_F(FailingNoteTest, IsRescuedAtTheEndAndTheOthersAreSaved) {
    FailTextOfFirst(1);
    EXPECT_TRUE(test_.quit.Run(QuitReason::Command));
    EXPECT_EQ(test_.StoredFiles().size(), 1U);
    EXPECT_EQ(test_.files.List(kTestDesktop, kNoteExtension).size(), 1U);
}

TEST_F(FailingNoteTest, LetsTheUserDecideAndCanBeSavedLater) {
    FailTextOfFirst(100);
    test_.notice.answer = false;
    EXPECT_FALSE(Quit());
    ASSERT_EQ(test_.notice.questions.size(), 1U);
    EXPECT_FALSE(test_.program.quitting);
    EXPECT_EQ(test_.StoredFiles().size(), 1U);
    FailTextOfFirst(0);
    EXPECT_TRUE(Quit());
    EXPECT_EQ(test_.StoredFiles().size(), 2U);
}

TEST_F(FailingNoteTest, DoesNotKeepTheProgramFromQuittingLater) {
    FailTextOfFirst(100);
    test_.notice.onAsk = [] { throw std::bad_alloc(); };
    EXPECT_THROW(static_cast<void>(Quit()), std::bad_alloc);
    test_.notice.onAsk = nullptr;
    EXPECT_TRUE(Quit());
}

TEST_F(FailingNoteTest, KeepsNoOtherFromBeingSaved) {
    FailTextOfFirst(1);
    PersistAllNotes(test_.program.openNotes);
    EXPECT_EQ(test_.StoredFiles().size(), 1U);
    FailTextOfFirst(1);
    test_.saveAll.Run();
    test_.timers.Pass(10'000);
    EXPECT_EQ(test_.StoredFiles().size(), 2U) << "without another change";
}

}  // namespace
}  // namespace quillo
