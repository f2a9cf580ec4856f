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

/// A disk of a megabyte, empty at first and at last, for what happens on a full one. scripts/lib.sh makes it where it
/// may, and names it in QUILLO_SMALL_DISK.
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

/// Puts a file with these bytes there, in the place of whatever has its name. Fails the test when that cannot be done.
void PutFile(const std::u16string& path, std::string_view bytes);

/// Dispatches messages until `done` says so; false when it does not within `milliseconds`.
[[nodiscard]] bool PumpUntil(const std::function<bool()>& done, DWORD milliseconds = 10'000);
/// Dispatches every message that is waiting now.
void PumpWaiting();
/// Paints the window and its children now.
void PaintNow(HWND window);
/// The color on the window's surface, at a point of its client area.
[[nodiscard]] COLORREF PixelOf(HWND window, Point at);

}  // namespace quillo::windows_tests
