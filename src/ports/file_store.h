#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillo {

/// The disk, as far as notes need it. Paths are absolute Windows paths with backslashes.
class FileStore {
  public:
    virtual ~FileStore() = default;

    /// True for a file, not for a folder.
    [[nodiscard]] virtual bool FileExists(std::u16string_view path) = 0;
    /// The whole content; nothing when the path is missing, locked, a folder or cannot be read.
    [[nodiscard]] virtual std::optional<std::string> Read(std::u16string_view path) = 0;
    /// Creates or truncates the file. False when not every byte was written; a partly written file stays as it is.
    [[nodiscard]] virtual bool Write(std::u16string_view path, std::string_view bytes) = 0;
    /// Makes the bytes durable under a temporary name beside the path (one that does not end in ".qln"), then puts
    /// them in place in one step: a reader, or a machine that dies, sees the old bytes or the new ones. False leaves
    /// the old file untouched and no temporary file behind.
    [[nodiscard]] virtual bool Replace(std::u16string_view path, std::string_view bytes) = 0;
    [[nodiscard]] virtual bool Delete(std::u16string_view path) = 0;
    /// True when the folder stands afterwards. Creates the last component only.
    virtual bool CreateFolder(std::u16string_view path) = 0;
    /// Full paths of the files directly in `folder` whose long name ends in `extension` (with its dot, any letter
    /// case), in the order in which the file system gives them.
    [[nodiscard]] virtual std::vector<std::u16string> List(std::u16string_view folder,
                                                           std::u16string_view extension) = 0;
    /// A free file name with the given prefix in the system's temporary folder, "" when there is none.
    [[nodiscard]] virtual std::u16string TemporaryName(std::u16string_view prefix) = 0;
};

}  // namespace quillo
