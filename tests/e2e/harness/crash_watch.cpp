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

void CrashWatch::Note(const EXCEPTION_RECORD& fault) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "fault 0x%08lX at %p", fault.ExceptionCode, fault.ExceptionAddress);
    const std::lock_guard<std::mutex> lock(mutex_);
    if (crash_.empty()) crash_ = text.data();
}

void CrashWatch::Watch(std::wstring commandLine, std::wstring folder) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    // Under Wine a process now and then does not start.
    const bool done = Eventually(
        [&] {
            return CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, DEBUG_ONLY_THIS_PROCESS,
                                  nullptr, folder.empty() ? nullptr : folder.c_str(), &startup, &started) != 0;
        },
        std::chrono::seconds(5));
    if (done) {
        // The process executes nothing before the first event is answered below.
        family_ = MakeFamily();
        AssignProcessToJobObject(family_.Get(), started.hProcess);
        CloseHandle(started.hThread);
        process_ = started.hProcess;
    }
    started_ = true;
    DEBUG_EVENT event{};
    while (done && WaitForDebugEvent(&event, INFINITE) != 0) {
        DWORD answer = DBG_CONTINUE;
        if (event.dwDebugEventCode == CREATE_PROCESS_DEBUG_EVENT) CloseHandle(event.u.CreateProcessInfo.hFile);
        if (event.dwDebugEventCode == LOAD_DLL_DEBUG_EVENT) CloseHandle(event.u.LoadDll.hFile);
        if (event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT) {
            const EXCEPTION_RECORD& fault = event.u.Exception.ExceptionRecord;
            if (IsFault(fault.ExceptionCode)) Note(fault);
            if (fault.ExceptionCode != EXCEPTION_BREAKPOINT) answer = DBG_EXCEPTION_NOT_HANDLED;
        }
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId, answer);
        if (event.dwDebugEventCode == EXIT_PROCESS_DEBUG_EVENT) break;
    }
}

}  // namespace quillo::e2e
