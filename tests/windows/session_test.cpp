#include "main_form_fixture.h"

namespace quillo::windows_tests {
namespace {

class SessionTest : public MainFormTest {
  protected:
    SessionTest() { EXPECT_TRUE(form_.Load()); }
};

TEST_F(SessionTest, LockingSavesOnce) {
    form_.WatchSession();
    Send(WM_WTSSESSION_CHANGE, WTS_SESSION_LOCK, 1);
    EXPECT_EQ(Heard(), "away ");
    for (const WPARAM other : {WTS_SESSION_UNLOCK, WTS_SESSION_LOGON}) Send(WM_WTSSESSION_CHANGE, other, 1);
    EXPECT_EQ(Heard(), "");
}

TEST_F(SessionTest, RemindersWaitWithoutTheConsoleAndContinueRemotely) {
    Send(WM_WTSSESSION_CHANGE, WTS_CONSOLE_DISCONNECT, 1);
    EXPECT_EQ(Heard(), "gone ");
    Send(WM_WTSSESSION_CHANGE, WTS_REMOTE_CONNECT, 1);
    EXPECT_EQ(Heard(), "back ");
    Send(WM_WTSSESSION_CHANGE, WTS_CONSOLE_CONNECT, 1);
    EXPECT_EQ(Heard(), "back ");
}

TEST_F(SessionTest, SuspendingSavesAndIsAllowed) {
    EXPECT_EQ(Send(WM_POWERBROADCAST, PBT_APMSUSPEND), TRUE);
    EXPECT_EQ(Heard(), "away ");
    Send(WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC);
    EXPECT_EQ(Heard(), "");
}

TEST_F(SessionTest, ItsEndIsHandledInItsTwoSteps) {
    EXPECT_EQ(Send(WM_QUERYENDSESSION), TRUE);
    Send(WM_ENDSESSION, FALSE);
    EXPECT_EQ(Heard(), "held ending released ") << "another program has refused";
    Send(WM_ENDSESSION, TRUE);
    EXPECT_EQ(Heard(), "held ended released ");
    EXPECT_EQ(heldBy_, form_.Handle());
    EXPECT_EQ(reason_, u"Quillo is saving your notes.");
}

TEST_F(SessionTest, TheSystemsOwnCallsAreHarmless) {
    const SessionEndCalls system = SystemSessionEndCalls();
    {
        const SessionEndBlock block(system, form_.Handle(), L"saving");
        EXPECT_NE(IsWindow(form_.Handle()), FALSE);
    }
    const SessionEndBlock onNoWindow(system, nullptr, L"saving");
}

TEST_F(SessionTest, WithoutHandlersNothingHappens) {
    form_.onGoingAway = nullptr;
    form_.onPresence = nullptr;
    EXPECT_EQ(Send(WM_POWERBROADCAST, PBT_APMSUSPEND), TRUE);
    Send(WM_WTSSESSION_CHANGE, WTS_CONSOLE_CONNECT, 1);
    EXPECT_EQ(Heard(), "");
}

}  // namespace
}  // namespace quillo::windows_tests
