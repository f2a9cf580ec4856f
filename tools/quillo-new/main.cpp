// Makes a new note: for a shortcut, a key or a gesture of the user's own choice. When Quillo runs it is asked for the
// note; when it does not, it is started first. (A first start of quillo.exe with "/new" would call that command
// unknown.)
#include "platform/notify_channel.h"

namespace {

constexpr wchar_t kProgram[] = L"quillo.exe";
constexpr wchar_t kCommand[] = L"/new";
/// How long a Quillo that was just started may take to open its channel, in milliseconds.
constexpr DWORD kPatience = 10'000;
/// The longest path of the system, with the null at its end.
constexpr DWORD kLongestPath = 32'768;

enum ExitCode : int { kDone = 0, kNotStarted = 1, kNoAnswer = 2 };

/// Room for one path, from the heap: the stack is too small for it, and a static one would lie in the file as zeros.
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

/// Writes the path of Quillo, which lies in the folder of this program; false when that has no room.
bool FindQuillo(wchar_t* path) {
    const DWORD length = GetModuleFileNameW(nullptr, path, kLongestPath);
    if (length == 0 || length >= kLongestPath) return false;
    DWORD folder = length;
    while (folder > 0 && path[folder - 1] != L'\\') --folder;
    if (folder + ARRAYSIZE(kProgram) > kLongestPath) return false;
    lstrcpyW(path + folder, kProgram);
    return true;
}

/// Without arguments, as by a double click.
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

/// The entry point itself: nothing here needs what a run-time library would prepare.
extern "C" [[noreturn]] void QuilloNewMain() {
    ExitProcess(static_cast<UINT>(Run()));
}
