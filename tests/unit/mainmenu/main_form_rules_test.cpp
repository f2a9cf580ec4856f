#include "mainmenu/main_form_rules.h"

#include <gtest/gtest.h>

#include "util/busy_flag.h"

namespace quillo {
namespace {

TEST(MainFormRules, EveryFifthMinuteSaves) {
    std::string saves;
    for (int tick = 1; tick <= 11; ++tick) saves += IsBackupTick(tick) ? 'S' : '-';
    EXPECT_EQ(saves, "----S----S-");
}

TEST(MainFormRules, ASecondClickOnTheIconCreatesANoteAndABusyProgramIgnoresClicks) {
    EXPECT_EQ(IconClickOf(false, false), IconClick::OpensMenu);
    EXPECT_EQ(IconClickOf(false, true), IconClick::CreatesNote);
    EXPECT_EQ(IconClickOf(true, false), IconClick::Ignored);
    EXPECT_EQ(IconClickOf(true, true), IconClick::Ignored);
}

TEST(MainFormRules, RemindersWaitForTheConsoleAndARemoteSessionCountsAsConnected) {
    EXPECT_EQ(SessionChangeOf(1), SessionChange::Back);
    EXPECT_EQ(SessionChangeOf(2), SessionChange::Away);
    EXPECT_EQ(SessionChangeOf(3), SessionChange::Back) << "over a remote connection";
    for (const unsigned other : {0U, 4U, 5U, 6U, 7U, 8U, 9U, 100U}) {
        EXPECT_EQ(SessionChangeOf(other), SessionChange::Nothing) << other;
    }
}

TEST(BusyFlag, IsSetWhileAnyScopeIsAlive) {
    BusyFlag flag;
    EXPECT_FALSE(flag.IsSet());
    {
        const BusyFlag::Scope outer(flag);
        {
            const BusyFlag::Scope inner(flag);
            EXPECT_TRUE(flag.IsSet());
        }
        EXPECT_TRUE(flag.IsSet());
    }
    EXPECT_FALSE(flag.IsSet());
}

}  // namespace
}  // namespace quillo
