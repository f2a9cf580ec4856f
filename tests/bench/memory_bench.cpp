// The memory that the program uses for the notes on the screen, compared with the bare program that shows the same
// files: private memory, memory with shared pages counted in proportion, GDI and user objects. Usage: memory_bench
// QUILLO.EXE BARE_NOTES.EXE [NOTES]. It uses the notes folder of the user who runs it, and refuses one that contains
// notes.

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "bench/program_run.h"

#include <psapi.h>

namespace {

struct Held {
    double privateMegabytes = 0;
    double proportionalMegabytes = 0;
    int gdiObjects = 0;
    int userObjects = 0;
};

constexpr double kMegabyte = 1024.0 * 1024.0;

/// Divides each page of the working set by the number of processes that share it, which the system counts up to seven.
double ProportionalByWorkingSet(HANDLE process) {
    std::vector<ULONG_PTR> pages(1U << 20U);
    if (QueryWorkingSet(process, pages.data(), static_cast<DWORD>(pages.size() * sizeof(ULONG_PTR))) == 0) return 0;
    SYSTEM_INFO system{};
    GetSystemInfo(&system);
    double bytes = 0;
    for (ULONG_PTR i = 1; i <= pages[0]; ++i) {
        const ULONG_PTR sharers = pages[i] >> 5U & 7U;
        bytes += system.dwPageSize / (sharers > 1 ? static_cast<double>(sharers) : 1.0);
    }
    return bytes / kMegabyte;
}

/// The number after a name in a file of the system; 0 without it.
double Kilobytes(const std::string& text, const char* name) {
    const std::size_t at = text.find(name);
    return at == std::string::npos ? 0 : std::atof(text.c_str() + text.find(':', at) + 1);
}

/// Wine does not report which pages are shared or private; Linux does. Nothing on Windows.
std::optional<Held> HeldByLinux(const std::string& name) {
    const std::wstring folder = quillo::bench::LinuxFolderOf(name);
    if (folder.empty()) return std::nullopt;
    const std::string rollup = quillo::bench::ReadAllOfDevice(folder + L"\\smaps_rollup");
    if (rollup.empty()) return std::nullopt;
    Held held;
    held.proportionalMegabytes = Kilobytes(rollup, "\nPss:") / 1024;
    held.privateMegabytes = (Kilobytes(rollup, "\nPrivate_Clean:") + Kilobytes(rollup, "\nPrivate_Dirty:")) / 1024;
    return held;
}

Held Measure(HANDLE process, const std::string& name) {
    Held held;
    if (const auto known = HeldByLinux(name)) {
        held = *known;
    } else {
        PROCESS_MEMORY_COUNTERS_EX counters{};
        counters.cb = sizeof counters;
        GetProcessMemoryInfo(process, reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters), sizeof counters);
        held.privateMegabytes = static_cast<double>(counters.PrivateUsage) / kMegabyte;
        held.proportionalMegabytes = ProportionalByWorkingSet(process);
    }
    held.gdiObjects = static_cast<int>(GetGuiResources(process, GR_GDIOBJECTS));
    held.userObjects = static_cast<int>(GetGuiResources(process, GR_USEROBJECTS));
    return held;
}

void Print(const char* name, const Held& held, int notes) {
    std::printf("%-12s %10.1f %14.1f %8d %8d %10.2f %10.2f\n", name, held.privateMegabytes, held.proportionalMegabytes,
                held.gdiObjects, held.userObjects, static_cast<double>(held.gdiObjects) / notes,
                static_cast<double>(held.userObjects) / notes);
}

}  // namespace

int main(int argc, char** argv) {
    using namespace quillo::bench;
    if (argc < 3) return std::printf("usage: memory_bench QUILLO.EXE BARE_NOTES.EXE [NOTES]\n"), 2;
    const int notes = argc > 3 ? std::atoi(argv[3]) : 50;
    // As the bare program shows its windows: the X server then reads the same parts of each window's contents.
    const NotesFolder folder(notes, SamplePlaces::Diagonal);
    if (!folder.IsReady()) return std::printf("the notes folder holds notes, or cannot be written\n"), 2;
    // Start-up leaves timers that fire once, and windows that are created after the first painting.
    constexpr DWORD kSettleMilliseconds = 15'000;
    Held held[2];
    // The first start of a user opens the help, for which the shell loads what no later start needs.
    if (!ProgramRun(argv[1], notes).IsReady()) return std::printf("the notes did not come\n"), 1;
    {
        const ProgramRun quillo(argv[1], notes);
        if (!quillo.IsReady()) return std::printf("the notes did not come\n"), 1;
        Sleep(kSettleMilliseconds);
        held[0] = Measure(quillo.Process(), "quillo.exe");
    }
    {
        const ProgramRun bare(argv[2], notes, L" " + folder.Path(), L"BareNote");
        if (!bare.IsReady()) return std::printf("the bare windows did not come\n"), 1;
        Sleep(kSettleMilliseconds);
        held[1] = Measure(bare.Process(), "bare_notes.exe");
    }
    std::printf("%d notes     private MB proportional MB  GDI     user   GDI/note  user/note\n", notes);
    Print("quillo", held[0], notes);
    Print("bare_notes", held[1], notes);
    std::printf("%-12s %10.2f %14.2f\n", "ratio", held[0].privateMegabytes / held[1].privateMegabytes,
                held[0].proportionalMegabytes / held[1].proportionalMegabytes);
    return 0;
}
