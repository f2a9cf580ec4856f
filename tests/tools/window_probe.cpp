// Reports the state of the program under test to scripts.
//   window_probe wait SECONDS   waits until it is up; prints the notes folder and the visible notes
//   window_probe gone SECONDS   waits until it has ended
//   window_probe alert SECONDS  waits until a reminder's alert is on the screen
//   window_probe box SECONDS CLASS  waits until a window of that class is on the screen; prints its box in pixels
//   window_probe stay           stays until it is ended: keeps the desktop's services warm
// Exit codes: 0 done, 1 not within the time, 2 wrong arguments.
#include "platform/win32.h"

// After windows.h, which it needs.
#include <shlobj.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr DWORD kPollMilliseconds = 20;

class Deadline {
  public:
    explicit Deadline(DWORD seconds) : end_(GetTickCount64() + ULONGLONG{seconds} * 1000) {}
    [[nodiscard]] bool Passed() const { return GetTickCount64() >= end_; }
    [[nodiscard]] DWORD LeftMilliseconds() const {
        const ULONGLONG now = GetTickCount64();
        return now >= end_ ? 0 : static_cast<DWORD>(end_ - now);
    }

  private:
    ULONGLONG end_;
};

/// Writes UTF-8 and one line break, without the C library's translation.
void PrintLine(const std::wstring& line) {
    const int size = static_cast<int>(line.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, line.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, line.data(), size, narrow.data(), bytes, nullptr, nullptr);
    narrow += '\n';
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), narrow.data(), static_cast<DWORD>(narrow.size()), &written, nullptr);
}

HWND FindNotifyWindow() {
    return FindWindowW(nullptr, L"Quillo Notify");
}

/// The path on the host, or empty on a system whose only paths are its own.
std::wstring HostPath(const std::wstring& path) {
    using ToHostPath = char*(CDECL*)(const wchar_t*);
    const auto procedure = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name");
    const auto toHostPath = reinterpret_cast<ToHostPath>(reinterpret_cast<void*>(procedure));
    if (toHostPath == nullptr) return {};
    char* const narrow = toHostPath(path.c_str());
    if (narrow == nullptr) return {};
    const int units = MultiByteToWideChar(CP_UTF8, 0, narrow, -1, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(units > 0 ? units : 1), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, narrow, -1, wide.data(), units);
    wide.pop_back();
    HeapFree(GetProcessHeap(), 0, narrow);
    return wide;
}

bool UsesRoamingProfile() {
    DWORD value = 0;
    DWORD size = sizeof value;
    const LSTATUS status = RegGetValueW(HKEY_LOCAL_MACHINE, L"Software\\Marrowind\\Quillo", L"Use roaming profile",
                                        RRF_RT_REG_DWORD, nullptr, &value, &size);
    return status == ERROR_SUCCESS && value != 0;
}

void PrintNotesFolder() {
    wchar_t base[MAX_PATH] = L"";
    const int folder = UsesRoamingProfile() ? CSIDL_APPDATA : CSIDL_LOCAL_APPDATA;
    if (FAILED(SHGetFolderPathW(nullptr, folder, nullptr, SHGFP_TYPE_CURRENT, base))) return;
    PrintLine(L"folder\t" + std::wstring(base) + L"\\Marrowind\\Notes");
    // Only the base is converted: the host has no answer for a folder that does not exist yet.
    const std::wstring host = HostPath(base);
    if (!host.empty()) PrintLine(L"hostfolder\t" + host + L"/Marrowind/Notes");
}

struct NoteSearch {
    DWORD process = 0;
    std::vector<HWND> found;
};

BOOL CALLBACK CollectNote(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<NoteSearch*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t name[64] = L"";
    GetClassNameW(window, name, static_cast<int>(sizeof name / sizeof *name));
    if (process == search.process && IsWindowVisible(window) && std::wstring(name) == L"QuilloNote") {
        search.found.push_back(window);
    }
    return TRUE;
}

/// A name, left, top, width and height in pixels, separated by tabs.
std::wstring BoxLine(const std::wstring& name, HWND window) {
    RECT box{};
    GetWindowRect(window, &box);
    return name + L"\t" + std::to_wstring(box.left) + L"\t" + std::to_wstring(box.top) + L"\t" +
           std::to_wstring(box.right - box.left) + L"\t" + std::to_wstring(box.bottom - box.top);
}

void PrintNotes(DWORD process) {
    NoteSearch search{process, {}};
    EnumWindows(CollectNote, reinterpret_cast<LPARAM>(&search));
    for (const HWND note : search.found) {
        PrintLine(BoxLine(L"note", note));
    }
}

/// Posts a message to the hidden window's text box and waits until it has left the queue: the message loop runs.
bool QueueRuns(HWND notify, const Deadline& deadline) {
    const HWND box = GetWindow(notify, GW_CHILD);
    DWORD_PTR marked = 0;
    SendMessageTimeoutW(box, EM_SETMODIFY, FALSE, 0, SMTO_ABORTIFHUNG, 1000, &marked);
    PostMessageW(box, EM_SETMODIFY, TRUE, 0);
    for (; !deadline.Passed(); Sleep(kPollMilliseconds)) {
        marked = 0;
        if (SendMessageTimeoutW(box, EM_GETMODIFY, 0, 0, SMTO_ABORTIFHUNG, 1000, &marked) != 0 && marked != 0)
            return true;
        if (IsWindow(box) == 0) return false;
    }
    return false;
}

/// "Up" means that the hidden window exists and start-up is over.
int WaitUntilUp(DWORD seconds) {
    for (const Deadline deadline(seconds); !deadline.Passed(); Sleep(kPollMilliseconds)) {
        const HWND notify = FindNotifyWindow();
        if (notify == nullptr || !QueueRuns(notify, deadline)) continue;
        DWORD process = 0;
        GetWindowThreadProcessId(notify, &process);
        PrintNotesFolder();
        PrintNotes(process);
        return 0;
    }
    return 1;
}

int WaitUntilGone(DWORD seconds) {
    const Deadline deadline(seconds);
    DWORD process = 0;
    if (const HWND notify = FindNotifyWindow(); notify != nullptr) GetWindowThreadProcessId(notify, &process);
    if (process == 0) return 0;
    const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
    if (handle == nullptr) return 0;
    const DWORD result = WaitForSingleObject(handle, deadline.LeftMilliseconds());
    CloseHandle(handle);
    return result == WAIT_OBJECT_0 ? 0 : 1;
}

/// The first visible window of a class; null if none appears in time.
HWND WaitForWindow(const wchar_t* className, DWORD seconds) {
    const Deadline deadline(seconds);
    for (;; Sleep(kPollMilliseconds)) {
        HWND window = nullptr;
        while ((window = FindWindowExW(nullptr, window, className, nullptr)) != nullptr) {
            if (IsWindowVisible(window)) return window;
        }
        if (deadline.Passed()) return nullptr;
    }
}

int PrintBox(const std::wstring& className, DWORD seconds) {
    const HWND window = WaitForWindow(className.c_str(), seconds);
    if (window == nullptr) return 1;
    PrintLine(BoxLine(L"box", window));
    return 0;
}

int Stay() {
    // The first window makes the system set up the desktop.
    const HWND window = CreateWindowExW(0, L"Static", L"Window probe", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                        GetModuleHandleW(nullptr), nullptr);
    if (window == nullptr) return 1;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string verb = count > 1 ? arguments[1] : "";
    const DWORD seconds = count > 2 ? static_cast<DWORD>(std::strtoul(arguments[2], nullptr, 10)) : 30;
    if (verb == "wait") return WaitUntilUp(seconds);
    if (verb == "gone") return WaitUntilGone(seconds);
    if (verb == "alert") return WaitForWindow(L"QuilloReminder", seconds) != nullptr ? 0 : 1;
    if (verb == "box" && count > 3) {
        const std::string className = arguments[3];
        return PrintBox(std::wstring(className.begin(), className.end()), seconds);
    }
    if (verb == "stay") return Stay();
    return 2;
}
