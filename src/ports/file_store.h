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
    NameTaken,     ///< the name has to be free, and is not
    InUse,         ///< another program has the file open
    NoPermission,  ///< also a write-protected disk
    DiskFull,
    FolderMissing,  ///< the folder that the file is to be in does not exist
    TooLarge,
    Failed,  ///< anything else
};

/// A file that is open for reading. Until this object ends nobody else can change it, replace it or delete it.
class HeldFile {
  public:
    virtual ~HeldFile() = default;
    [[nodiscard]] virtual const std::string& Bytes() const = 0;
    /// Deletes this very file, not what has its name by now.
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
    /// Nothing for what is no file.
    [[nodiscard]] virtual std::optional<FileEntry> Find(std::u16string_view path) = 0;
    /// The whole content; nothing when the path is missing, locked, a folder or cannot be read.
    [[nodiscard]] virtual std::optional<std::string> Read(std::u16string_view path) = 0;
    /// Opens a file of at most `mostBytes` and keeps others from changing it.
    [[nodiscard]] virtual HoldResult Hold(std::u16string_view path, std::uint64_t mostBytes) = 0;
    /// Makes a file under a name that is free (else NameTaken), its bytes durable. A failure leaves no file behind.
    [[nodiscard]] virtual FileError Create(std::u16string_view path, std::string_view bytes) = 0;
    /// Puts a file in the place of another (or of none) of the same folder, in one step: a reader, or a machine that
    /// dies, sees the one or the other. A failure leaves both.
    [[nodiscard]] virtual FileError MoveOver(std::u16string_view from, std::u16string_view to) = 0;
    /// Gives a file another name of the same folder, in one step, if that name is free.
    [[nodiscard]] virtual FileError Rename(std::u16string_view from, std::u16string_view to) = 0;
    /// NotFound when there was nothing to delete.
    [[nodiscard]] virtual FileError Delete(std::u16string_view path) = 0;
    /// True when the folder exists afterwards. Creates the last component only.
    virtual bool CreateFolder(std::u16string_view path) = 0;
    /// The files directly in `folder` whose long name ends in `extension` (with its dot, any letter case), in the order
    /// of the file system.
    [[nodiscard]] virtual std::vector<FileEntry> List(std::u16string_view folder, std::u16string_view extension) = 0;
    /// A free file name with the given prefix in the system's temporary folder, "" when there is none.
    [[nodiscard]] virtual std::u16string TemporaryName(std::u16string_view prefix) = 0;
    /// The system's temporary folder, "" when there is none.
    [[nodiscard]] virtual std::u16string TemporaryFolder() = 0;
};

}  // namespace quillo
