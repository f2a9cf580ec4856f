#include "app/quit.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quillo
