// Counts the system calls that make a start slow: each count is a constant plus a multiple of the number of notes. No
// time is asserted.
#include <gtest/gtest.h>

#include "import_counter.h"
#include "opened_notes.h"

namespace quillo::windows_tests {
namespace {

struct Counts {
    int windows = 0;
    int classes = 0;
    int files = 0;
    int monitorQuestions = 0;
    int nearestMonitors = 0;
    int libraries = 0;
    int registryValues = 0;
    int windowsInAll = 0;  ///< including those created after the first painting
    int timersStarted = 0;
    int timersRunning = 0;  ///< of those, when the notes are at rest
    int scrollBarCalls = 0;
};

/// Counts while that many notes open, and until they are at rest.
[[nodiscard]] Counts CountOpening(int notes) {
    OpenedNotes opened(notes);
    const ImportCounter<0, decltype(CreateWindowExW)> windows("CreateWindowExW");
    const ImportCounter<1, decltype(RegisterClassExW)> classes("RegisterClassExW");
    const ImportCounter<2, decltype(CreateFileW)> files("CreateFileW");
    const ImportCounter<3, decltype(EnumDisplayMonitors)> monitors("EnumDisplayMonitors");
    const ImportCounter<4, decltype(MonitorFromPoint)> nearest("MonitorFromPoint");
    const ImportCounter<5, decltype(LoadLibraryExW)> libraries("LoadLibraryExW");
    const ImportCounter<6, decltype(RegQueryValueExW)> values("RegQueryValueExW");
    const ImportCounter<7, decltype(SetTimer)> timers("SetTimer");
    const ImportCounter<8, decltype(KillTimer)> ended("KillTimer");
    const ImportCounter<9, decltype(ShowScrollBar)> bars("ShowScrollBar");
    const ImportCounter<10, decltype(SetScrollInfo)> ranges("SetScrollInfo");
    EXPECT_TRUE(timers.IsCalled() && ended.IsCalled() && bars.IsCalled() && ranges.IsCalled());
    EXPECT_TRUE(windows.IsCalled() && classes.IsCalled() && files.IsCalled() && monitors.IsCalled() &&
                nearest.IsCalled() && libraries.IsCalled() && values.IsCalled());
    opened.Open();
    Counts counts{windows.Calls(), classes.Calls(),   files.Calls(), monitors.Calls(),
                  nearest.Calls(), libraries.Calls(), values.Calls()};
    EXPECT_EQ(opened.program.openNotes.Count(), static_cast<std::size_t>(notes));
    EXPECT_TRUE(opened.Settle());
    PumpWaiting();
    counts.windowsInAll = windows.Calls();
    counts.timersStarted = timers.Calls();
    counts.timersRunning = timers.Calls() - ended.Calls();
    counts.scrollBarCalls = bars.Calls() + ranges.Calls();
    return counts;
}

TEST(StartCounts, EachNoteCostsItsTwoWindowsAndItsFileAndNothingElse) {
    // Everything that happens once in a process happens now.
    (void)CountOpening(1);
    const Counts few = CountOpening(2);
    const Counts many = CountOpening(7);
    const int more = 7 - 2;
    EXPECT_EQ(few.windows, 2 * 2) << "the note and its text box";
    EXPECT_EQ(many.windows, 2 * 7);
    EXPECT_EQ(many.windowsInAll - few.windowsInAll, 5 * more) << "and three buttons after the first painting";
    EXPECT_EQ(few.classes, 1);
    EXPECT_EQ(many.classes, 1);
    EXPECT_EQ(many.files - few.files, more);
    EXPECT_EQ(few.monitorQuestions, 1);
    EXPECT_EQ(many.monitorQuestions, 1);
    EXPECT_EQ(many.nearestMonitors, 0);
    EXPECT_EQ(many.libraries, 0);
    EXPECT_EQ(many.registryValues, 0);
    EXPECT_EQ(many.timersStarted, few.timersStarted) << "one, for what all notes create after the first painting";
    EXPECT_EQ(many.scrollBarCalls, 0) << "without its option a note has no bar to hide";
    EXPECT_EQ(many.timersRunning, 0) << "a note at rest wakes nobody";
}

}  // namespace
}  // namespace quillo::windows_tests
