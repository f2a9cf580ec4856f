#include "bench/program_run.h"

#include <cstdio>
#include <cstdlib>

#include "platform/wide.h"
#include "platform/win_file_store.h"
#include "platform/win_shell.h"

namespace quillo::bench {
namespace {

/// The place of a sample's upper left corner in twips.
POINT PlaceOf(int index, SamplePlaces places) {
    constexpr int kFirst = 300;
    if (places == SamplePlaces::Diagonal) return {kFirst + index * 150, kFirst + index * 120};
    return {kFirst + index % 10 * 1700, kFirst + index / 10 * 2000};
}

std::string WithTags(const std::string& text, POINT place) {
    return text + "\r\n<quillo><position>" + std::to_string(place.x) + "," + std::to_string(place.y) +
           ",2820,2445</position><appearance>False,False,14155262,3723262,0,0</appearance><reminder></reminder>"
           "<nodelete></nodelete></quillo>";
}

/// The folders whose names are numbers: the processes and threads of Linux.
std::vector<std::wstring> NumbersIn(const std::wstring& folder) {
    std::vector<std::wstring> found;
    WIN32_FIND_DATAW entry{};
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return found;
    do {
        if (entry.cFileName[0] >= L'1' && entry.cFileName[0] <= L'9') found.push_back(folder + L'\\' + entry.cFileName);
    } while (FindNextFileW(search, &entry) != 0);
    FindClose(search);
    return found;
}

double ProcessorMillisecondsIn(const std::wstring& linuxFolder) {
    double nanoseconds = 0;
    for (const std::wstring& thread : NumbersIn(linuxFolder + L"\\task")) {
        nanoseconds += std::atof(ReadAllOfDevice(thread + L"\\schedstat").c_str());
    }
    return nanoseconds / 1'000'000;
}

double ProcessorMillisecondsOnWindows(HANDLE process) {
    FILETIME ignored{};
    FILETIME kernel{};
    FILETIME user{};
    GetProcessTimes(process, &ignored, &ignored, &kernel, &user);
    const auto ticks = [](const FILETIME& time) { return (ULONGLONG{time.dwHighDateTime} << 32) + time.dwLowDateTime; };
    return static_cast<double>(ticks(kernel) + ticks(user)) / 10'000;
}

}  // namespace

std::string SampleNote(int index, SamplePlaces places) {
    std::string text = "Note " + std::to_string(index);
    for (int line = 0; line < 8; ++line) text += "\r\nmilk, bread, a call to the garage, line " + std::to_string(line);
    return WithTags(text, PlaceOf(index, places));
}

NotesFolder::NotesFolder(int notes, SamplePlaces places) {
    WinFileStore files;
    WinShell shell;
    std::u16string folder = shell.FolderPath(SpecialFolder::LocalApplicationData) + u"\\Marrowind";
    files.CreateFolder(folder);
    folder += u"\\Notes";
    files.CreateFolder(folder);
    path_ = Wide(folder);
    if (!files.List(folder, u".qln").empty()) return;
    ready_ = true;
    for (int i = 0; i < notes; ++i) {
        // With as many digits each, so that the order by name is that of the numbers.
        const std::wstring path = path_ + L"\\bench" + std::to_wstring(1000 + i) + L".qln";
        ready_ = files.Create(FromWide(path.c_str()), SampleNote(i, places)) == FileError::None && ready_;
        files_.push_back(path);
    }
}

bool NotesFolder::AddLarge(std::size_t characters) {
    std::string text;
    for (int line = 0; text.size() < characters; ++line) {
        text += "line " + std::to_string(line) + " of a note with a text that nobody reads to its end\r\n";
    }
    const std::wstring path = path_ + L"\\bench-large.qln";
    WinFileStore files;
    if (files.Create(FromWide(path.c_str()), WithTags(text, POINT{9000, 600})) != FileError::None) return false;
    files_.push_back(path);
    return true;
}

NotesFolder::~NotesFolder() {
    if (files_.empty()) return;  // the folder contains notes of the user
    WinFileStore files;
    for (const FileEntry& file : files.List(FromWide(path_.c_str()), u".qln")) {
        if (files.Delete(file.path) != FileError::None) std::printf("a note was left behind\n");
    }
}

ProgramRun::ProgramRun(const std::string& exe, int notes, const std::wstring& arguments, const wchar_t* windowClass)
    : name_(exe.substr(exe.find_last_of('\\') + 1)), windowClass_(windowClass) {
    std::wstring line = L"\"" + std::wstring(exe.begin(), exe.end()) + L"\"" + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &info) == 0)
        return;
    process_.Reset(info.hProcess);
    const KernelHandle thread(info.hThread);
    constexpr int kLooks = 600;
    constexpr DWORD kBetweenMilliseconds = 100;
    for (int i = 0; i < kLooks && static_cast<int>(WindowsOf(windowClass).size()) < notes; ++i)
        Sleep(kBetweenMilliseconds);
    constexpr DWORD kPatienceMilliseconds = 60'000;
    ready_ = static_cast<int>(WindowsOf(windowClass).size()) >= notes &&
             WaitForInputIdle(process_.Get(), kPatienceMilliseconds) == 0;
}

ProgramRun::~ProgramRun() {
    if (!process_) return;
    TerminateProcess(process_.Get(), 0);
    WaitForSingleObject(process_.Get(), INFINITE);
}

double ProgramRun::ProcessorMilliseconds() const {
    if (linuxFolder_.empty()) linuxFolder_ = LinuxFolderOf(name_);
    return linuxFolder_.empty() ? ProcessorMillisecondsOnWindows(process_.Get())
                                : ProcessorMillisecondsIn(linuxFolder_);
}

long long ProgramRun::TimesAwake() const {
    constexpr char kName[] = "\nvoluntary_ctxt_switches:";
    if (linuxFolder_.empty()) linuxFolder_ = LinuxFolderOf(name_);
    long long times = 0;
    for (const std::wstring& thread :
         linuxFolder_.empty() ? std::vector<std::wstring>() : NumbersIn(linuxFolder_ + L"\\task")) {
        const std::string status = ReadAllOfDevice(thread + L"\\status");
        const std::size_t at = status.find(kName);
        if (at != std::string::npos) times += std::atoll(status.c_str() + at + sizeof kName - 1);
    }
    return times;
}

double ProcessorMillisecondsOf(HANDLE process, const std::string& name) {
    // Wine returns the time of the calling process.
    const std::wstring folder = LinuxFolderOf(name);
    return folder.empty() ? ProcessorMillisecondsOnWindows(process) : ProcessorMillisecondsIn(folder);
}

bool IsPainted(HWND window) {
    HWND box = FindWindowExW(window, nullptr, L"Edit", nullptr);
    return IsWindowVisible(window) && !GetUpdateRect(window, nullptr, FALSE) && box != nullptr &&
           !GetUpdateRect(box, nullptr, FALSE);
}

std::vector<HWND> WindowsOf(const wchar_t* windowClass) {
    std::vector<HWND> windows;
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, windowClass, nullptr)) != nullptr) windows.push_back(window);
    return windows;
}

std::wstring LinuxFolderOf(const std::string& name) {
    const std::string environment = ReadAllOfDevice(L"Z:\\proc\\self\\environ");
    const std::size_t at = environment.find("WINEPREFIX=");
    if (at == std::string::npos) return {};
    const std::string prefix = environment.substr(at, environment.find('\0', at) - at);
    std::wstring youngest;
    for (const std::wstring& folder : NumbersIn(L"Z:\\proc")) {
        if (ReadAllOfDevice(folder + L"\\comm") != name.substr(0, 15) + "\n") continue;
        if (ReadAllOfDevice(folder + L"\\environ").find(prefix) != std::string::npos) youngest = folder;
    }
    return youngest;
}

std::vector<HWND> ProgramRun::TextBoxes() const {
    std::vector<HWND> boxes;
    for (HWND note : WindowsOf(windowClass_)) boxes.push_back(FindWindowExW(note, nullptr, L"Edit", nullptr));
    return boxes;
}

bool ProgramRun::SaveAll() const {
    // The system's message before a session ends: everything is on the disk when the answer arrives.
    HWND form = FindWindowW(L"QuilloMenu", nullptr);
    constexpr UINT kPatienceMilliseconds = 60'000;
    DWORD_PTR agreed = 0;
    return SendMessageTimeoutW(form, WM_QUERYENDSESSION, 0, 0, SMTO_NORMAL, kPatienceMilliseconds, &agreed) != 0 &&
           agreed != 0;
}

std::string ReadAll(const std::wstring& path) {
    WinFileStore files;
    return files.Read(FromWide(path.c_str())).value_or(std::string());
}

std::string ReadAllOfDevice(const std::wstring& path) {
    const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    std::string all;
    char part[4096];
    DWORD read = 0;
    while (file && ReadFile(file.Get(), part, sizeof part, &read, nullptr) != 0 && read > 0) all.append(part, read);
    return all;
}

}  // namespace quillo::bench
