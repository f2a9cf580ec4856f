// The cost of the idle program: processor time with 50 notes on the screen, over a minute or more, and how often its
// threads were awake, which Linux counts.
// Usage: idle_bench QUILLO.EXE [SECONDS [NOTES]]
// It uses the notes folder of the user who runs it, and refuses one that holds notes.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/program_run.h"

int main(int argc, char** argv) {
    using namespace quillo::bench;
    if (argc < 2) return std::printf("usage: idle_bench QUILLO.EXE [SECONDS [NOTES]]\n"), 2;
    const DWORD seconds = argc > 2 ? static_cast<DWORD>(std::atoi(argv[2])) : 60;
    const int notes = argc > 3 ? std::atoi(argv[3]) : 50;
    const NotesFolder folder(notes);
    if (!folder.IsReady()) return std::printf("the notes folder holds notes, or cannot be written\n"), 2;
    const ProgramRun quillo(argv[1], notes);
    if (!quillo.IsReady()) return std::printf("the notes did not come\n"), 1;

    // Start-up leaves timers that fire once; the main timer's first tick warms its own code up.
    constexpr DWORD kSettleMilliseconds = 15'000;
    Sleep(kSettleMilliseconds);
    const double before = quillo.ProcessorMilliseconds();
    if (before <= 0) return std::printf("the system does not tell the program's processor time\n"), 1;
    const long long awakeBefore = quillo.TimesAwake();
    Sleep(seconds * 1000);
    const double after = quillo.ProcessorMilliseconds();
    const long long awake = quillo.TimesAwake() - awakeBefore;
    std::printf("%d notes: %.1f ms of processor time until all were painted, %.1f ms in the %lu s at rest\n", notes,
                before, after - before, seconds);
    if (awake > 0) std::printf("awake %lld times\n", awake);
    return 0;
}
