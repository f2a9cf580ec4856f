#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillo {

/// Why a call to the disk has failed.
enum class FileError {
    None,
    NotFound,
    NameTaken,     ///< the name must be free, but a file has it
    InUse,         ///< another program has the file open
    NoPermission,  ///< also a write-protected disk
    DiskFull,
    FolderMissing,  ///< the folder of the new file does not exist
    TooLarge,
    Failed,  ///< anything else
};

/// A file that is open for reading. While this object lives, nobody else can change, replace or delete the file.
class HeldFile {
  public:
    virtual ~HeldFile() = default;
    [[nodiscard]] virtual const std::string& Bytes() const = 0;
    /// Deletes the file that was opened, even if its name now belongs to another one.
    [[nodiscard]] virtual FileError Delete() = 0;
};

struct HoldResult {
    std::unique_ptr<HeldFile> file;  ///< null on failure
    FileError error = FileError::None;
};

struct FileEntry {
    std::u16string path;
    std::uint64_t size = 0;      ///< in bytes
    std::uint64_t modified = 0;  ///< time of the last write; only good for comparing
};

/// The disk, as far as notes need it. Paths are absolute Windows paths with backslashes. Operations that another
/// program's open file can block wait for it briefly; these waits never add up, however many files are concerned.
class FileStore {
  public:
    virtual ~FileStore() = default;

    /// True for a file, not for a folder.
    [[nodiscard]] virtual bool FileExists(std::u16string_view path) = 0;
    /// Nothing if the path is not a file.
    [[nodiscard]] virtual std::optional<FileEntry> Find(std::u16string_view path) = 0;
    /// The whole content; nothing if the path is missing, locked, a folder or cannot be read.
    [[nodiscard]] virtual std::optional<std::string> Read(std::u16string_view path) = 0;
    /// Opens a file of at most `mostBytes` and keeps others from changing it.
    [[nodiscard]] virtual HoldResult Hold(std::u16string_view path, std::uint64_t mostBytes) = 0;
    /// Creates a file under a free name (NameTaken otherwise) and makes its bytes durable. A failure leaves no file
    /// behind.
    [[nodiscard]] virtual FileError Create(std::u16string_view path, std::string_view bytes) = 0;
    /// Moves a file over another name of the same folder, which need not exist, in one step: a reader sees either the
    /// old or the new file, also after a power failure. A failure leaves both files unchanged.
    [[nodiscard]] virtual FileError MoveOver(std::u16string_view from, std::u16string_view to) = 0;
    /// Renames a file within its folder in one step, if the new name is free.
    [[nodiscard]] virtual FileError Rename(std::u16string_view from, std::u16string_view to) = 0;
    /// NotFound when there was nothing to delete.
    [[nodiscard]] virtual FileError Delete(std::u16string_view path) = 0;
    /// True if the folder exists afterwards. Creates the last component only.
    virtual bool CreateFolder(std::u16string_view path) = 0;
    /// The files directly in `folder` whose long name ends in `extension` (with its dot, any letter case), in the order
    /// of the file system.
    [[nodiscard]] virtual std::vector<FileEntry> List(std::u16string_view folder, std::u16string_view extension) = 0;
    /// A free file name with the given prefix in the system's temporary folder, "" if there is none.
    [[nodiscard]] virtual std::u16string TemporaryName(std::u16string_view prefix) = 0;
    /// The system's temporary folder, "" if there is none.
    [[nodiscard]] virtual std::u16string TemporaryFolder() = 0;
};

}  // namespace quillo
