#include <gtest/gtest.h>

#include "mainmenu/notify_window.h"
#include "support.h"

namespace quillo {
namespace {

class SessionTest : public testing::Test {
  protected:
    SessionTest() {
        EXPECT_TRUE(window_.Load());
        window_.onGoingAway = [this] { ++savings_; };
    }

    NotifyWindow window_;
    int savings_ = 0;
};

TEST_F(SessionTest, LockingSavesOnce) {
    window_.WatchSession();
    SendMessageW(window_.Handle(), WM_WTSSESSION_CHANGE, WTS_SESSION_LOCK, 1);
    EXPECT_EQ(savings_, 1);
    for (const WPARAM other : {WTS_SESSION_UNLOCK, WTS_SESSION_LOGON, WTS_CONSOLE_CONNECT}) {
        SendMessageW(window_.Handle(), WM_WTSSESSION_CHANGE, other, 1);
    }
    EXPECT_EQ(savings_, 1);
}

TEST_F(SessionTest, SuspendingSavesAndIsAllowed) {
    EXPECT_EQ(SendMessageW(window_.Handle(), WM_POWERBROADCAST, PBT_APMSUSPEND, 0), TRUE);
    EXPECT_EQ(savings_, 1);
    SendMessageW(window_.Handle(), WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
    EXPECT_EQ(savings_, 1);
}

TEST_F(SessionTest, WithNobodyListeningNothingHappens) {
    window_.onGoingAway = nullptr;
    EXPECT_EQ(SendMessageW(window_.Handle(), WM_POWERBROADCAST, PBT_APMSUSPEND, 0), TRUE);
}

}  // namespace
}  // namespace quillo
