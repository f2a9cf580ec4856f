#include "bench/program_run.h"

#include <cstdlib>

#include "platform/wide.h"
#include "platform/win_file_store.h"
#include "platform/win_shell.h"

namespace quillo::bench {
namespace {

std::string SampleNote(int index) {
    const int left = 300 + index % 10 * 1700;
    const int top = 300 + index / 10 * 2000;
    std::string text = "Note " + std::to_string(index);
    for (int line = 0; line < 8; ++line) text += "\r\nmilk, bread, a call to the garage, line " + std::to_string(line);
    return text + "\r\n<quillo><position>" + std::to_string(left) + "," + std::to_string(top) +
           ",2820,2445</position><appearance>False,False,14155262,3723262,0,0</appearance><reminder></reminder>"
           "<nodelete></nodelete></quillo>";
}

std::vector<HWND> WindowsOf(const wchar_t* windowClass) {
    std::vector<HWND> notes;
    HWND note = nullptr;
    while ((note = FindWindowExW(nullptr, note, windowClass, nullptr)) != nullptr) notes.push_back(note);
    return notes;
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

}  // namespace

NotesFolder::NotesFolder(int notes) {
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
        const std::wstring path = path_ + L"\\bench" + std::to_wstring(i) + L".qln";
        ready_ = files.Create(FromWide(path.c_str()), SampleNote(i)) == FileError::None && ready_;
        files_.push_back(path);
    }
}

NotesFolder::~NotesFolder() {
    for (const std::wstring& path : files_) DeleteFileW(path.c_str());
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
    return ProcessorMillisecondsOf(process_.Get(), name_);
}

double ProcessorMillisecondsOf(HANDLE process, const std::string& name) {
    // Wine returns the time of the calling process.
    const std::wstring folder = LinuxFolderOf(name);
    if (!folder.empty()) {
        double nanoseconds = 0;
        for (const std::wstring& thread : NumbersIn(folder + L"\\task")) {
            nanoseconds += std::atof(ReadAllOfDevice(thread + L"\\schedstat").c_str());
        }
        return nanoseconds / 1'000'000;
    }
    FILETIME ignored{};
    FILETIME kernel{};
    FILETIME user{};
    GetProcessTimes(process, &ignored, &ignored, &kernel, &user);
    const auto ticks = [](const FILETIME& time) { return (ULONGLONG{time.dwHighDateTime} << 32) + time.dwLowDateTime; };
    return static_cast<double>(ticks(kernel) + ticks(user)) / 10'000;
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
