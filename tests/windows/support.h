#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/win32.h"
#include "util/geometry.h"

namespace quillo::windows_tests {

/// The exit code of a test program that crashed, whoever would have swallowed the crash.
inline constexpr int kCrashExitCode = 86;

/// A crash anywhere in the process ends it with kCrashExitCode. The system swallows a crash inside a window procedure:
/// the program would go on, silently broken, and the test would pass.
void EndProcessOnCrash();

/// A folder of the test's own; everything in it goes with the test.
class TempFolder {
  public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    [[nodiscard]] const std::u16string& Path() const { return path_; }
    /// The full path of a name in the folder.
    [[nodiscard]] std::u16string Of(std::u16string_view name) const { return path_ + u'\\' + std::u16string(name); }

  private:
    std::u16string path_;
};

/// Dispatches messages until `done` says so; false when it does not within `milliseconds`.
[[nodiscard]] bool PumpUntil(const std::function<bool()>& done, DWORD milliseconds = 10'000);
/// Dispatches every message that is waiting now.
void PumpWaiting();
/// Paints the window and its children now.
void PaintNow(HWND window);
/// The colour on the window's surface, at a point of its client area.
[[nodiscard]] COLORREF PixelOf(HWND window, Point at);

}  // namespace quillo::windows_tests
