// The time from the program's start until every note is painted, compared with the bare program that shows the same
// files in the same run, interleaved; prints the ratio of the medians.
// Usage: startup_bench QUILLO.EXE BARE_NOTES.EXE [RUNS]
// It uses the notes folder of the user who runs it, and refuses one that holds notes.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/unique_handle.h"
#include "platform/wide.h"
#include "platform/win_file_store.h"
#include "platform/win_shell.h"

namespace {

using Clock = std::chrono::steady_clock;

bool IsPainted(HWND window) {
    HWND box = FindWindowExW(window, nullptr, L"Edit", nullptr);
    return IsWindowVisible(window) && !GetUpdateRect(window, nullptr, FALSE) && box != nullptr &&
           !GetUpdateRect(box, nullptr, FALSE);
}

/// Whether that many windows of the class have been painted. Checks as little as possible: every check takes time from
/// the program under measurement.
bool ArePainted(const wchar_t* windowClass, int notes) {
    std::vector<HWND> windows;
    HWND window = FindWindowExW(nullptr, nullptr, windowClass, nullptr);
    for (; window != nullptr; window = FindWindowExW(nullptr, window, windowClass, nullptr)) windows.push_back(window);
    return static_cast<int>(windows.size()) >= notes && std::all_of(windows.begin(), windows.end(), &IsPainted);
}

/// Milliseconds from the start of the command until `notes` windows are painted; negative on a timeout.
double TimeStart(const std::wstring& command, const wchar_t* windowClass, int notes) {
    std::wstring line = command;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    const auto begin = Clock::now();
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &info)) return -1;
    const quillo::KernelHandle process(info.hProcess);
    const quillo::KernelHandle thread(info.hThread);
    bool painted = false;
    while (!painted && Clock::now() - begin < std::chrono::seconds(60)) {
        Sleep(4);
        painted = ArePainted(windowClass, notes);
    }
    const std::chrono::duration<double, std::milli> took = Clock::now() - begin;
    TerminateProcess(process.Get(), 0);
    WaitForSingleObject(process.Get(), INFINITE);
    while (FindWindowExW(nullptr, nullptr, windowClass, nullptr) != nullptr) Sleep(4);
    return painted ? took.count() : -1;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
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

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return std::printf("usage: startup_bench QUILLO.EXE BARE_NOTES.EXE [RUNS]\n"), 2;
    const int runs = argc > 3 ? std::atoi(argv[3]) : 15;
    quillo::WinFileStore files;
    quillo::WinShell shell;
    std::u16string folder = shell.FolderPath(quillo::SpecialFolder::LocalApplicationData) + u"\\Marrowind";
    files.CreateFolder(folder);
    folder += u"\\Notes";
    files.CreateFolder(folder);
    if (!files.List(folder, u".qln").empty()) return std::printf("the notes folder holds notes\n"), 2;

    const std::string program = argv[1];
    const std::wstring quilloCommand = L"\"" + std::wstring(program.begin(), program.end()) + L"\"";
    const std::string bare = argv[2];
    const std::wstring bareCommand = L"\"" + std::wstring(bare.begin(), bare.end()) + L"\" " + quillo::Wide(folder);

    std::printf("notes   quillo ms    bare ms   ratio of medians\n");
    int written = 0;
    for (const int notes : {1, 10, 50}) {
        for (; written < notes; ++written) {
            const std::string name = "\\bench" + std::to_string(written) + ".qln";
            const std::u16string path = folder + std::u16string(name.begin(), name.end());
            if (files.Create(path, SampleNote(written)) != quillo::FileError::None) return 1;
        }
        std::vector<double> ours;
        std::vector<double> theirs;
        for (int run = -1; run < runs; ++run) {  // the first pair only warms up
            const double a = TimeStart(quilloCommand, L"QuilloNote", notes);
            const double b = TimeStart(bareCommand, L"BareNote", notes);
            if (a < 0 || b < 0) return std::printf("the notes did not come\n"), 1;
            if (run >= 0) ours.push_back(a), theirs.push_back(b);
        }
        std::printf("%5d   %9.1f  %9.1f   %.2f\n", notes, Median(ours), Median(theirs), Median(ours) / Median(theirs));
        std::fflush(stdout);
    }
    for (const quillo::FileEntry& file : files.List(folder, u".qln")) {
        if (files.Delete(file.path) != quillo::FileError::None) std::printf("a note was left behind\n");
    }
    return 0;
}
