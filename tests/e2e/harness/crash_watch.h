#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>

#include "platform/unique_handle.h"
#include "platform/win32.h"

namespace quillo::e2e {

/// Starts a process and watches it as a debugger does. The system can hide a fault inside a window procedure, after
/// which the program continues in a broken state: this class sees it. The destructor ends everything that the process
/// has started (a help window, a program shortcut), so that no test finds the windows of an earlier one.
class CrashWatch {
  public:
    CrashWatch() = default;
    CrashWatch(const CrashWatch&) = delete;
    CrashWatch& operator=(const CrashWatch&) = delete;
    /// The process must have ended.
    ~CrashWatch();

    /// A handle to the process started, or null.
    [[nodiscard]] HANDLE Start(std::wstring commandLine, const std::wstring& folder);
    [[nodiscard]] std::string Crash() const;
    /// Why the last attempt to start it has failed.
    [[nodiscard]] std::string StartProblem() const;

  private:
    void Watch(std::wstring commandLine, std::wstring folder);
    /// Starts the process up to its own first instruction. False if the system does not start it, or ends it before.
    [[nodiscard]] bool Begin(std::wstring commandLine, const std::wstring& folder);
    enum class Event { Breakpoint, End, Other, None };
    /// Waits for the next event of the processes that this thread debugs, and answers it. A breakpoint and an end count
    /// only if they are of that process.
    [[nodiscard]] Event AnswerEvent(DWORD process);
    void Note(const EXCEPTION_RECORD& fault);

    KernelHandle family_;  ///< a job: the process and its descendants
    std::thread thread_;
    std::atomic<bool> started_{false};
    HANDLE process_ = nullptr;  ///< written before `started_`
    mutable std::mutex mutex_;
    std::string crash_;
    std::string startProblem_;
};

}  // namespace quillo::e2e
