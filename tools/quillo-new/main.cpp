// Creates a new note, for a shortcut, a key or a gesture of the user's own choice. Passes the command to a running
// Quillo, or starts Quillo first. (A first start of quillo.exe with "/new" would call that command unknown.)
#include "platform/notify_channel.h"

namespace {

constexpr wchar_t kProgram[] = L"quillo.exe";
constexpr wchar_t kCommand[] = L"/new";
/// How long a newly started Quillo may take to open its channel, in milliseconds.
constexpr DWORD kPatience = 10'000;
/// The system's maximum length of a path, with the null at its end.
constexpr DWORD kLongestPath = 32'768;

enum ExitCode : int { kDone = 0, kNotStarted = 1, kNoAnswer = 2 };

/// A buffer for one path, on the heap: the stack is too small for it, and a static one would be in the file as zeros.
class PathBuffer {
  public:
    PathBuffer() : text_(static_cast<wchar_t*>(HeapAlloc(GetProcessHeap(), 0, kLongestPath * sizeof(wchar_t)))) {}
    PathBuffer(const PathBuffer&) = delete;
    PathBuffer& operator=(const PathBuffer&) = delete;
    ~PathBuffer() {
        if (text_ != nullptr) HeapFree(GetProcessHeap(), 0, text_);
    }

    [[nodiscard]] wchar_t* Text() const { return text_; }

  private:
    wchar_t* text_;
};

/// Writes the path of Quillo, which is in the folder of this program; false if it does not fit.
bool FindQuillo(wchar_t* path) {
    const DWORD length = GetModuleFileNameW(nullptr, path, kLongestPath);
    if (length == 0 || length >= kLongestPath) return false;
    DWORD folder = length;
    while (folder > 0 && path[folder - 1] != L'\\') --folder;
    if (folder + ARRAYSIZE(kProgram) > kLongestPath) return false;
    lstrcpyW(path + folder, kProgram);
    return true;
}

/// Starts Quillo without arguments, like a double click.
bool StartQuillo() {
    const PathBuffer path;
    if (path.Text() == nullptr || !FindQuillo(path.Text())) return false;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(path.Text(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process) == 0)
        return false;
    // The click that started this process allows the note to come to the front.
    AllowSetForegroundWindow(process.dwProcessId);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

int Run() {
    HWND box = quillo::AwaitNotifyBox(0);
    if (box == nullptr) {
        if (!StartQuillo()) {
            MessageBoxW(nullptr, L"Quillo could not be started. Install it again.", L"Quillo", MB_OK | MB_ICONERROR);
            return kNotStarted;
        }
        box = quillo::AwaitNotifyBox(kPatience);
    }
    if (box == nullptr) return kNoAnswer;
    quillo::SendToNotifyBox(box, kCommand);
    return kDone;
}

}  // namespace

/// The entry point itself: this program needs no initialization by a run-time library.
extern "C" [[noreturn]] void QuilloNewMain() {
    ExitProcess(static_cast<UINT>(Run()));
}
