#pragma once

#include <optional>
#include <string>
#include <vector>

#include "harness/crash_watch.h"
#include "harness/eventually.h"
#include "platform/unique_handle.h"

namespace quillo::e2e {

/// The full path of the program under test.
[[nodiscard]] const std::wstring& QuilloExe();

/// The top-level windows of a process, in the system's order.
[[nodiscard]] std::vector<HWND> WindowsOf(DWORD process);
[[nodiscard]] std::wstring ClassOf(HWND window);

/// The text box of the channel of a running program; null if none is running.
[[nodiscard]] HWND FindChannel();

/// One start of quillo.exe. The destructor kills a process that is still running.
class QuilloProcess {
  public:
    /// `arguments` is the rest of the command line after the program's name. `folder` is the process's current folder;
    /// "" is that of the tests.
    explicit QuilloProcess(const std::wstring& arguments = L"", const std::wstring& folder = L"");
    QuilloProcess(const QuilloProcess&) = delete;
    QuilloProcess& operator=(const QuilloProcess&) = delete;
    ~QuilloProcess();

    [[nodiscard]] DWORD Pid() const { return pid_; }
    [[nodiscard]] bool IsRunning() const;
    /// Waits until the program has finished its start-up and answers messages. False if it has ended instead.
    [[nodiscard]] bool WaitUntilReady() const;
    /// What a failed test reports: whether it is running, its exit code, and which process has the channel.
    [[nodiscard]] std::string State() const;
    /// True if the window procedures respond.
    [[nodiscard]] bool Answers() const;
    /// The exit code; nothing if the process is still running after `patience`.
    [[nodiscard]] std::optional<DWORD> WaitForExit(std::chrono::milliseconds patience = kPatience) const;
    /// Ends the process at once, as a power failure would.
    void Kill();

    /// The box into which a second start would write; null if this process has none.
    [[nodiscard]] HWND Channel() const;
    /// The windows of all its notes, shown or not.
    [[nodiscard]] std::vector<HWND> Notes() const;
    /// Whether it has requested a balloon beside the clock since its start.
    [[nodiscard]] bool HasShownBalloon() const;
    /// The first fault, even one that the system hid inside a window procedure; "" if there was none.
    [[nodiscard]] std::string Crash() const { return watch_.Crash(); }

  private:
    CrashWatch watch_;
    KernelHandle process_;
    DWORD pid_ = 0;
};

/// Starts the program and waits until it has ended. Returns the exit code; nothing if it is still running.
[[nodiscard]] std::optional<DWORD> RunToEnd(const std::wstring& arguments, const std::wstring& folder = L"");

}  // namespace quillo::e2e
