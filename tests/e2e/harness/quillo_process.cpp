#include "harness/quillo_process.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "harness/ask.h"
#include "harness/tray.h"
#include "platform/win32.h"

namespace quillo::e2e {
namespace {

std::wstring FindExe() {
    std::array<wchar_t, 1024> buffer{};
    const DWORD length = GetEnvironmentVariableW(L"QUILLO_EXE", buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length > 0 && length < buffer.size()) return buffer.data();
    GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    const std::filesystem::path tests = std::filesystem::path(buffer.data()).parent_path();
    return (tests / QUILLO_RELATIVE_EXE).lexically_normal().make_preferred().wstring();
}

DWORD ProcessOf(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process;
}

struct Search {
    DWORD process;
    std::vector<HWND> found;
};

BOOL CALLBACK Collect(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (ProcessOf(window) == search.process) search.found.push_back(window);
    return TRUE;
}

/// Posts a message to the channel's box and waits until it has left the queue: the message loop runs.
bool QueueRuns(HWND box) {
    DWORD_PTR marked = 0;
    SendMessageTimeoutW(box, EM_SETMODIFY, FALSE, 0, SMTO_ABORTIFHUNG, kAnswerMilliseconds, &marked);
    PostMessageW(box, EM_SETMODIFY, TRUE, 0);
    return Eventually([box, &marked] {
        SendMessageTimeoutW(box, EM_GETMODIFY, 0, 0, SMTO_ABORTIFHUNG, kAnswerMilliseconds, &marked);
        return marked != 0 || IsWindow(box) == 0;
    });
}

}  // namespace

const std::wstring& QuilloExe() {
    static const std::wstring path = FindExe();
    return path;
}

std::vector<HWND> WindowsOf(DWORD process) {
    Search search{process, {}};
    EnumWindows(&Collect, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 128> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

HWND FindChannel() {
    HWND form = FindWindowW(L"ThunderRT6FormDC", L"Quillo Notify");
    return form == nullptr ? nullptr : FindWindowExW(form, nullptr, L"ThunderRT6TextBox", nullptr);
}

QuilloProcess::QuilloProcess(const std::wstring& arguments, const std::wstring& folder) {
    const std::wstring commandLine = L"\"" + QuilloExe() + L"\"" + (arguments.empty() ? L"" : L" ") + arguments;
    process_.Reset(watch_.Start(commandLine, folder));
    if (!process_) {
        ADD_FAILURE() << "cannot start " << std::filesystem::path(QuilloExe()) << ": " << watch_.StartProblem();
        return;
    }
    pid_ = GetProcessId(process_.Get());
}

QuilloProcess::~QuilloProcess() {
    Kill();
}

bool QuilloProcess::IsRunning() const {
    return process_ && WaitForSingleObject(process_.Get(), 0) == WAIT_TIMEOUT;
}

bool QuilloProcess::WaitUntilReady() const {
    const bool open = Eventually([this] { return Channel() != nullptr || !IsRunning(); });
    return open && IsRunning() && QueueRuns(Channel()) && IsRunning();
}

std::string QuilloProcess::State() const {
    HWND channel = FindChannel();
    const std::optional<DWORD> code = WaitForExit(std::chrono::milliseconds(0));
    std::string state = "process " + std::to_string(pid_);
    state += code ? " has ended with " + std::to_string(*code) : IsRunning() ? " is running" : " was not started";
    state +=
        channel != nullptr ? "; process " + std::to_string(ProcessOf(channel)) + " has" : std::string("; nobody has");
    return state + " the channel";
}

bool QuilloProcess::Answers() const {
    DWORD_PTR ignored = 0;
    const std::vector<HWND> windows = WindowsOf(pid_);
    if (windows.empty()) return false;
    for (HWND window : windows) {
        const bool answered =
            SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kAnswerMilliseconds, &ignored) != 0;
        if (!answered && IsWindow(window) != 0) return false;
    }
    return true;
}

std::optional<DWORD> QuilloProcess::WaitForExit(std::chrono::milliseconds patience) const {
    if (!process_) return std::nullopt;
    if (WaitForSingleObject(process_.Get(), static_cast<DWORD>(patience.count())) != WAIT_OBJECT_0) return std::nullopt;
    DWORD code = 0;
    GetExitCodeProcess(process_.Get(), &code);
    return code;
}

void QuilloProcess::Kill() {
    if (!IsRunning()) return;
    constexpr UINT kKilled = 137;
    TerminateProcess(process_.Get(), kKilled);
    WaitForSingleObject(process_.Get(), INFINITE);
}

HWND QuilloProcess::Channel() const {
    HWND box = FindChannel();
    return box != nullptr && ProcessOf(box) == pid_ ? box : nullptr;
}

std::vector<HWND> QuilloProcess::Notes() const {
    std::vector<HWND> notes;
    for (HWND window : WindowsOf(pid_)) {
        if (ClassOf(window) == L"QuilloNote") notes.push_back(window);
    }
    return notes;
}

bool QuilloProcess::HasShownBalloon() const {
    return HasAskedForBalloon(pid_);
}

std::optional<DWORD> RunToEnd(const std::wstring& arguments, const std::wstring& folder) {
    const QuilloProcess process(arguments, folder);
    const std::optional<DWORD> code = process.WaitForExit();
    EXPECT_EQ(process.Crash(), "") << "in a second start";
    return code;
}

}  // namespace quillo::e2e
