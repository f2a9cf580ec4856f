// Counts what wakes the program while nobody uses it. No time is asserted.
#include <gtest/gtest.h>

#include <map>

#include "import_counter.h"
#include "mainmenu/main_form.h"
#include "opened_notes.h"

namespace quillo::windows_tests {
namespace {

/// Blinks the caret of the note that has the focus, if one has. It is the system's own and has no name in its headers.
constexpr UINT kBlink = 0x118;

/// Counts the messages that this thread takes out of its queue, by their numbers, without kBlink.
class MessageCounter {
  public:
    MessageCounter() : hook_(SetWindowsHookExW(WH_GETMESSAGE, &OnMessage, nullptr, GetCurrentThreadId())) {
        counts_.clear();
    }
    MessageCounter(const MessageCounter&) = delete;
    MessageCounter& operator=(const MessageCounter&) = delete;
    ~MessageCounter() { UnhookWindowsHookEx(hook_); }

    [[nodiscard]] static const std::map<UINT, int>& Counts() { return counts_; }

  private:
    static LRESULT CALLBACK OnMessage(int code, WPARAM removed, LPARAM message) {
        const UINT taken = reinterpret_cast<const MSG*>(message)->message;
        if (code == HC_ACTION && removed == PM_REMOVE && taken != kBlink) ++counts_[taken];
        return CallNextHookEx(nullptr, code, removed, message);
    }

    static inline std::map<UINT, int> counts_;
    HHOOK hook_;
};

// Milliseconds; the program's own intervals are much longer.
constexpr UINT kShortMainInterval = 30;
constexpr UINT kShortBackupInterval = 50;
constexpr int kTicksForBackup = 5;

TEST(IdleCounts, OnlyTheTwoTimersWakeTheProgram) {
    OpenedNotes notes(4);
    NoteWorldForTests& world = notes.world;
    MainForm mainForm({notes.program, world.registry, world.shell, world.locale, world.dialogs},
                      {notes.program.settings, notes.program.openNotes, world.notice, world.ole, world.monitors},
                      kShortBackupInterval);
    int mainTicks = 0;
    ResForm resForm(
        [&] {
            ++mainTicks;
            BroadcastTimer(notes.program.openNotes);
        },
        kShortMainInterval);
    notes.Open();
    ASSERT_TRUE(notes.Settle());
    PumpWaiting();
    const ImportCounter<40, decltype(SetTimer)> timers("SetTimer");
    ASSERT_TRUE(timers.IsCalled());
    ASSERT_TRUE(mainForm.Load());
    resForm.Load();
    mainForm.onBackup = [&] { world.loop.Quit(0); };
    const MessageCounter messages;
    EXPECT_EQ(world.loop.Run(), 0);
    const std::map<UINT, int> expected{{WM_TIMER, mainTicks + kTicksForBackup}, {WM_QUIT, 1}};
    EXPECT_EQ(MessageCounter::Counts(), expected) << "one for each tick, and the end of this test";
    EXPECT_EQ(timers.Calls(), 2 + mainTicks) << "the main timer is stopped during its ticks";
}

}  // namespace
}  // namespace quillo::windows_tests
