// The time from the program's start until every note is painted, compared with the bare program that shows the same
// files in the same run, interleaved; prints the ratio of the medians, and the middle half of the values. Processor
// time is that of the program's own process, which on a busy machine is steadier than the clock. Usage: startup_bench
// QUILLO.EXE BARE_NOTES.EXE [RUNS] It uses the notes folder of the user who runs it, and refuses one that holds notes.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/program_run.h"
#include "platform/unique_handle.h"
#include "platform/wide.h"
#include "platform/win_file_store.h"
#include "platform/win_shell.h"

namespace {

using Clock = std::chrono::steady_clock;

/// Whether that many windows of the class have been painted, of all that there are. Checks as little as possible:
/// every check takes time from the program under measurement.
bool ArePainted(const wchar_t* windowClass, int notes) {
    const std::vector<HWND> windows = quillo::bench::WindowsOf(windowClass);
    return static_cast<int>(windows.size()) >= notes &&
           std::count_if(windows.begin(), windows.end(), &quillo::bench::IsPainted) >= notes;
}

struct Start {
    double milliseconds = -1;  ///< until the windows are painted; negative on a timeout
    double processor = 0;      ///< milliseconds of processor time until then
};

Start TimeStart(const std::wstring& command, const wchar_t* windowClass, int notes) {
    std::wstring line = command;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    const auto begin = Clock::now();
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &info)) return {};
    const quillo::KernelHandle process(info.hProcess);
    const quillo::KernelHandle thread(info.hThread);
    bool painted = false;
    while (!painted && Clock::now() - begin < std::chrono::seconds(60)) {
        Sleep(4);
        painted = ArePainted(windowClass, notes);
    }
    const std::chrono::duration<double, std::milli> took = Clock::now() - begin;
    const std::size_t name = command.find_last_of(L'\\', command.find(L'"', 1)) + 1;
    const std::wstring program = command.substr(name, command.find(L'"', 1) - name);
    const double processor =
        quillo::bench::ProcessorMillisecondsOf(process.Get(), std::string(program.begin(), program.end()));
    TerminateProcess(process.Get(), 0);
    WaitForSingleObject(process.Get(), INFINITE);
    while (FindWindowExW(nullptr, nullptr, windowClass, nullptr) != nullptr) Sleep(4);
    return {painted ? took.count() : -1, processor};
}

/// The value that so much of the others lies below.
double Quantile(std::vector<double> values, double part) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1) + 0.5)];
}

struct Times {
    std::vector<double> clock;
    std::vector<double> processor;

    void Add(const Start& start) {
        clock.push_back(start.milliseconds);
        processor.push_back(start.processor);
    }
};

void Print(int notes, const char* what, const std::vector<double>& ours, const std::vector<double>& theirs) {
    const double a = Quantile(ours, 0.5);
    const double b = Quantile(theirs, 0.5);
    std::printf("%5d  %-9s  %7.1f (%.1f to %.1f)  %7.1f (%.1f to %.1f)   %.2f\n", notes, what, a, Quantile(ours, 0.25),
                Quantile(ours, 0.75), b, Quantile(theirs, 0.25), Quantile(theirs, 0.75), a / b);
    std::fflush(stdout);
}

std::string SampleNote(int index) {
    const int left = 300 + index * 150;
    const int top = 300 + index * 120;
    return "Note " + std::to_string(index) +
           ": milk, bread, a call to the garage\r\nand a second line that is long enough to be wrapped once\r\n"
           "<quillo><position>" +
           std::to_string(left) + "," + std::to_string(top) +
           ",2820,2445</position><appearance>False,False,14155262,3723262,0,0</appearance><reminder></reminder>"
           "<nodelete></nodelete></quillo>";
}

/// The folder of notes, the programs and the number of rounds.
struct Plan {
    std::u16string folder;
    std::wstring quillo;
    std::wstring bare;
    int runs = 0;
};

bool Write(const Plan& plan, const std::string& name, const std::string& bytes) {
    quillo::WinFileStore files;
    const std::u16string path = plan.folder + u'\\' + std::u16string(name.begin(), name.end());
    return files.Create(path, bytes) == quillo::FileError::None;
}

void Delete(const Plan& plan, const std::string& name) {
    quillo::WinFileStore files;
    const std::u16string path = plan.folder + u'\\' + std::u16string(name.begin(), name.end());
    if (files.Delete(path) != quillo::FileError::None) std::printf("a note was left behind\n");
}

std::string NameOf(int note) {
    return "bench" + std::to_string(note) + ".qln";
}

/// Both programs in turn with the notes of the folder; false if they do not come.
bool CompareWithBare(const Plan& plan, int notes) {
    Times ours;
    Times theirs;
    for (int run = -1; run < plan.runs; ++run) {  // the first pair only warms up
        const Start a = TimeStart(plan.quillo, L"QuilloNote", notes);
        const Start b = TimeStart(plan.bare, L"BareNote", notes);
        if (a.milliseconds < 0 || b.milliseconds < 0) return false;
        if (run >= 0) ours.Add(a), theirs.Add(b);
    }
    Print(notes, "clock", ours.clock, theirs.clock);
    Print(notes, "processor", ours.processor, theirs.processor);
    return true;
}

/// The time until the notes of the folder are painted, with a very large one beside them and without it, in turn; false
/// if they do not come.
bool CompareWithLarge(const Plan& plan, int notes) {
    constexpr char kName[] = "a-large.qln";  // the first by its name
    constexpr std::size_t kCharacters = 3'900'000;
    std::string large;
    while (large.size() < kCharacters)
        large += "a line of a very large note that is long enough to be wrapped once\r\n";
    large += "<quillo><position>9000,600,2820,2445</position><nodelete></nodelete></quillo>";
    Times with;
    Times without;
    for (int run = -1; run < plan.runs; ++run) {
        if (!Write(plan, kName, large)) return false;
        const Start a = TimeStart(plan.quillo, L"QuilloNote", notes);
        Delete(plan, kName);
        const Start b = TimeStart(plan.quillo, L"QuilloNote", notes);
        if (a.milliseconds < 0 || b.milliseconds < 0) return false;
        if (run >= 0) with.Add(a), without.Add(b);
    }
    std::printf("notes  time of    beside a note of %d characters      without it\n", static_cast<int>(kCharacters));
    Print(notes, "clock", with.clock, without.clock);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return std::printf("usage: startup_bench QUILLO.EXE BARE_NOTES.EXE [RUNS]\n"), 2;
    quillo::WinFileStore files;
    quillo::WinShell shell;
    Plan plan;
    plan.runs = argc > 3 ? std::atoi(argv[3]) : 15;
    plan.folder = shell.FolderPath(quillo::SpecialFolder::LocalApplicationData) + u"\\Marrowind";
    files.CreateFolder(plan.folder);
    plan.folder += u"\\Notes";
    files.CreateFolder(plan.folder);
    if (!files.List(plan.folder, u".qln").empty()) return std::printf("the notes folder holds notes\n"), 2;
    const std::string program = argv[1];
    plan.quillo = L"\"" + std::wstring(program.begin(), program.end()) + L"\"";
    const std::string bare = argv[2];
    plan.bare = L"\"" + std::wstring(bare.begin(), bare.end()) + L"\" " + quillo::Wide(plan.folder);

    std::printf("notes  time of    quillo ms (middle half)  bare ms (middle half)   ratio of medians\n");
    bool measured = true;
    int written = 0;
    for (const int notes : {1, 10, 50}) {
        for (; written < notes; ++written) measured = Write(plan, NameOf(written), SampleNote(written)) && measured;
        measured = measured && CompareWithBare(plan, notes);
    }
    // No more than 50 notes can be open.
    Delete(plan, NameOf(--written));
    measured = measured && CompareWithLarge(plan, written);
    while (written > 0) Delete(plan, NameOf(--written));
    return measured ? 0 : (std::printf("the notes did not come\n"), 1);
}
