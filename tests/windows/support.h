#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/win32.h"
#include "util/geometry.h"

namespace quillo::windows_tests {

/// The exit code of a test program that crashed, even if the system would have hidden the crash.
inline constexpr int kCrashExitCode = 86;

/// Makes a crash anywhere in the process end it with kCrashExitCode. The system hides a crash inside a window
/// procedure: the program would continue in a broken state, and the test would pass.
void EndProcessOnCrash();

/// A temporary folder for one test, deleted with everything in it.
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

/// A disk of a megabyte, empty before and after the test, for tests of a full disk. scripts/lib.sh creates it if it has
/// the rights, and names it in QUILLO_SMALL_DISK.
class SmallDisk {
  public:
    SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk();

    [[nodiscard]] bool IsThere() const { return !path_.empty(); }
    [[nodiscard]] static const char* WhyNot() {
        return "only root can make a small disk: QUILLO_SMALL_DISK is not set";
    }
    /// The full path of a name on the disk.
    [[nodiscard]] std::u16string Of(std::u16string_view name) const { return path_ + u'\\' + std::u16string(name); }

  private:
    std::u16string path_;
};

/// Writes a file with these bytes and replaces any file with its name. Fails the test on an error.
void PutFile(const std::u16string& path, std::string_view bytes);

/// Dispatches messages until `done` returns true; false if it does not within `milliseconds`.
[[nodiscard]] bool PumpUntil(const std::function<bool()>& done, DWORD milliseconds = 10'000);
/// Dispatches every message that is waiting now.
void PumpWaiting();
/// Paints the window and its children now.
void PaintNow(HWND window);
/// The color on the window's surface, at a point of its client area.
[[nodiscard]] COLORREF PixelOf(HWND window, Point at);

}  // namespace quillo::windows_tests
