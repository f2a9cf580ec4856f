#include "harness/crash_watch.h"

#include <array>
#include <cstdio>

#include "harness/eventually.h"

namespace quillo::e2e {
namespace {

/// The faults that no correct program raises.
bool IsFault(DWORD code) {
    constexpr std::array kFaults{EXCEPTION_ACCESS_VIOLATION,      EXCEPTION_ILLEGAL_INSTRUCTION,
                                 EXCEPTION_STACK_OVERFLOW,        EXCEPTION_INT_DIVIDE_BY_ZERO,
                                 EXCEPTION_PRIV_INSTRUCTION,      EXCEPTION_DATATYPE_MISALIGNMENT,
                                 EXCEPTION_ARRAY_BOUNDS_EXCEEDED, EXCEPTION_IN_PAGE_ERROR};
    for (const DWORD fault : kFaults) {
        if (code == fault) return true;
    }
    return false;
}

/// A job whose processes end when its handle is closed.
KernelHandle MakeFamily() {
    KernelHandle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

}  // namespace

CrashWatch::~CrashWatch() {
    if (thread_.joinable()) thread_.join();
}

HANDLE CrashWatch::Start(std::wstring commandLine, const std::wstring& folder) {
    // The thread that starts a process must be the one that debugs it.
    thread_ = std::thread([this, commandLine, folder] { Watch(commandLine, folder); });
    if (!Eventually([this] { return started_.load(); })) return nullptr;
    return process_;
}

std::string CrashWatch::Crash() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return crash_;
}

std::string CrashWatch::StartProblem() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return startProblem_;
}

void CrashWatch::Note(const EXCEPTION_RECORD& fault) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "fault 0x%08lX at %p", fault.ExceptionCode, fault.ExceptionAddress);
    const std::lock_guard<std::mutex> lock(mutex_);
    if (crash_.empty()) crash_ = text.data();
}

CrashWatch::Event CrashWatch::AnswerEvent(DWORD process) {
    DEBUG_EVENT event{};
    if (WaitForDebugEvent(&event, INFINITE) == 0) return Event::None;
    DWORD answer = DBG_CONTINUE;
    Event seen = event.dwDebugEventCode == EXIT_PROCESS_DEBUG_EVENT ? Event::End : Event::Other;
    if (event.dwDebugEventCode == CREATE_PROCESS_DEBUG_EVENT) CloseHandle(event.u.CreateProcessInfo.hFile);
    if (event.dwDebugEventCode == LOAD_DLL_DEBUG_EVENT) CloseHandle(event.u.LoadDll.hFile);
    if (event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT) {
        const EXCEPTION_RECORD& fault = event.u.Exception.ExceptionRecord;
        if (IsFault(fault.ExceptionCode)) Note(fault);
        if (fault.ExceptionCode == EXCEPTION_BREAKPOINT) {
            seen = Event::Breakpoint;
        } else {
            answer = DBG_EXCEPTION_NOT_HANDLED;
        }
    }
    ContinueDebugEvent(event.dwProcessId, event.dwThreadId, answer);
    return event.dwProcessId == process ? seen : Event::Other;
}

bool CrashWatch::Begin(std::wstring commandLine, const std::wstring& folder) {
    const auto failed = [this](const char* what, DWORD code) {
        const std::lock_guard<std::mutex> lock(mutex_);
        crash_.clear();  // a fault before the program's own code is none of its own
        startProblem_ = what + std::to_string(code);
        return false;
    };
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, DEBUG_ONLY_THIS_PROCESS, nullptr,
                       folder.empty() ? nullptr : folder.c_str(), &startup, &started) == 0) {
        return failed("the system refuses it with error ", GetLastError());
    }
    KernelHandle process(started.hProcess);
    CloseHandle(started.hThread);
    // The process executes nothing before its first event is answered.
    family_ = MakeFamily();
    AssignProcessToJobObject(family_.Get(), process.Get());
    // The system raises a breakpoint when everything is loaded that the program needs.
    for (;;) {
        const Event event = AnswerEvent(started.dwProcessId);
        if (event == Event::Breakpoint) break;
        if (event == Event::Other) continue;
        DWORD code = 0;
        GetExitCodeProcess(process.Get(), &code);
        family_.Reset();  // ends a process that cannot be watched
        return failed("it has ended while it was loaded, with ", code);
    }
    process_ = process.Release();
    return true;
}

void CrashWatch::Watch(std::wstring commandLine, std::wstring folder) {
    // Under Wine a process now and then does not start, or ends while its libraries are loaded.
    constexpr std::chrono::seconds kPatienceForStart{10};
    const bool done = Eventually([&] { return Begin(commandLine, folder); }, kPatienceForStart);
    started_ = true;
    if (!done) return;
    const DWORD process = GetProcessId(process_);
    Event event = Event::Other;
    while (event != Event::End && event != Event::None) event = AnswerEvent(process);
}

}  // namespace quillo::e2e
