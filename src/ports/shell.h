#pragma once

#include <string>
#include <string_view>

namespace quillo {

/// The shell's special folders, by the shell's own numbers.
enum class SpecialFolder : int {
    Desktop = 0,
    Documents = 5,
    DesktopDirectory = 16,
    RoamingApplicationData = 26,
    LocalApplicationData = 28,
    ProgramFiles = 38,
};

/// What has become of a file that was to be recycled.
enum class RecycleResult {
    Moved,  ///< it is in the Recycle Bin
    Stays,  ///< it is where it was
    Gone,   ///< the system has deleted it: the bin is off or too small, or the volume has none
};

/// The shell's services.
class Shell {
  public:
    virtual ~Shell() = default;

    /// Without a trailing backslash; "" when the folder does not exist.
    [[nodiscard]] virtual std::u16string FolderPath(SpecialFolder folder) = 0;
    [[nodiscard]] virtual std::u16string WindowsFolder() = 0;
    [[nodiscard]] virtual std::u16string SystemFolder() = 0;
    /// Full path of the running program.
    [[nodiscard]] virtual std::u16string ProgramPath() = 0;
    /// An absolute path for one that may be relative to the current folder; the path itself when that fails.
    [[nodiscard]] virtual std::u16string FullPath(std::u16string_view path) = 0;
    /// The full path with the long name of every part, as far as the parts exist: two paths of one file then differ
    /// in letter case at most, short names and relative parts or not.
    [[nodiscard]] virtual std::u16string FullLongPath(std::u16string_view path) = 0;
    /// Opens a file with its default action; false when nothing opens it. Shows no message.
    virtual bool Open(std::u16string_view path, std::u16string_view arguments) = 0;
    bool Open(std::u16string_view path) { return Open(path, {}); }
    /// Starts a program in a normal window; false for what is no program, and where the user's rights do not reach.
    virtual bool Start(std::u16string_view program, std::u16string_view arguments) = 0;
    /// The target of a shell link, as the shell-link service reports it; "" when it has none.
    [[nodiscard]] virtual std::u16string LinkTarget(std::u16string_view path) = 0;
    /// Moves a file to the Recycle Bin without questions, after a brief wait until no other program has it open: a file
    /// that is open cannot be moved, and the system then deletes it for good.
    [[nodiscard]] virtual RecycleResult Recycle(std::u16string_view path) = 0;
    /// A new GUID in its 38-character registry form, braces included.
    [[nodiscard]] virtual std::u16string NewUniqueIdentifier() = 0;
};

}  // namespace quillo
