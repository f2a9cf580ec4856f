#pragma once

#include <string>
#include <string_view>

namespace quillo {

/// The special folders, with the shell's own numbers.
enum class SpecialFolder : int {
    Desktop = 0,
    Documents = 5,
    DesktopDirectory = 16,
    RoamingApplicationData = 26,
    LocalApplicationData = 28,
    ProgramFiles = 38,
};

/// The result of moving a file to the Recycle Bin.
enum class RecycleResult {
    Moved,  ///< it is in the Recycle Bin
    Stays,  ///< it is where it was
    Gone,   ///< the system has deleted it: the bin is off or too small, or the volume has none
};

/// The shell's services.
class Shell {
  public:
    virtual ~Shell() = default;

    /// Without a trailing backslash; "" if the folder does not exist.
    [[nodiscard]] virtual std::u16string FolderPath(SpecialFolder folder) = 0;
    [[nodiscard]] virtual std::u16string WindowsFolder() = 0;
    [[nodiscard]] virtual std::u16string SystemFolder() = 0;
    /// Full path of the running program.
    [[nodiscard]] virtual std::u16string ProgramPath() = 0;
    /// An absolute path for one that may be relative to the current folder; the path itself when that fails.
    [[nodiscard]] virtual std::u16string FullPath(std::u16string_view path) = 0;
    /// The full path with the long name of every existing part. Two such paths of one file differ in letter case at
    /// most, even if one was given with short names or relative parts.
    [[nodiscard]] virtual std::u16string FullLongPath(std::u16string_view path) = 0;
    /// Opens a file with its default action; false if nothing opens it. Shows no message.
    virtual bool Open(std::u16string_view path, std::u16string_view arguments) = 0;
    bool Open(std::u16string_view path) { return Open(path, {}); }
    /// Starts a program in a normal window; false if the path is not a program or the user may not run it.
    virtual bool Start(std::u16string_view program, std::u16string_view arguments) = 0;
    /// The target of a shell link, as the shell-link service reports it; "" if there is none.
    [[nodiscard]] virtual std::u16string LinkTarget(std::u16string_view path) = 0;
    /// Moves a file to the Recycle Bin without asking. Waits briefly until no other program has the file open: the
    /// system would delete an open file permanently instead of moving it.
    [[nodiscard]] virtual RecycleResult Recycle(std::u16string_view path) = 0;
    /// A new GUID in its 38-character registry form, braces included.
    [[nodiscard]] virtual std::u16string NewUniqueIdentifier() = 0;
};

}  // namespace quillo
