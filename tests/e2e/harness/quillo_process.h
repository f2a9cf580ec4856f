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

/// The text box of the channel that a running program listens to; null when none does.
[[nodiscard]] HWND FindChannel();

/// One start of quillo.exe. What still runs when the object goes is ended by force.
class QuilloProcess {
  public:
    /// `arguments` is what stands after the program's name, as typed. `folder` is the process's current folder; "" is
    /// that of the tests.
    explicit QuilloProcess(const std::wstring& arguments = L"", const std::wstring& folder = L"");
    QuilloProcess(const QuilloProcess&) = delete;
    QuilloProcess& operator=(const QuilloProcess&) = delete;
    ~QuilloProcess();

    [[nodiscard]] DWORD Pid() const { return pid_; }
    [[nodiscard]] bool IsRunning() const;
    /// Waits until the program has done its start-up and answers to what it is sent. False when it ended instead.
    [[nodiscard]] bool WaitUntilReady() const;
    /// True when the window procedures answer.
    [[nodiscard]] bool Answers() const;
    /// The exit code; nothing when the process still runs after `patience`.
    [[nodiscard]] std::optional<DWORD> WaitForExit(std::chrono::milliseconds patience = kPatience) const;
    /// Ends the process at once, as a power failure would.
    void Kill();

    /// The box into which a second start would write; null when this process has none.
    [[nodiscard]] HWND Channel() const;
    /// The windows of all its notes, shown or not.
    [[nodiscard]] std::vector<HWND> Notes() const;
    /// Whether it has asked for a balloon beside the clock since it was started.
    [[nodiscard]] bool HasShownBalloon() const;
    /// The first fault, even one that was swallowed on its way out of a window procedure; "" when there was none.
    [[nodiscard]] std::string Crash() const { return watch_.Crash(); }

  private:
    CrashWatch watch_;
    KernelHandle process_;
    DWORD pid_ = 0;
};

/// Starts the program and waits until it has ended. The exit code; nothing when it stayed.
[[nodiscard]] std::optional<DWORD> RunToEnd(const std::wstring& arguments, const std::wstring& folder = L"");

}  // namespace quillo::e2e
