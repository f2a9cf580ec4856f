#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillo::qln {

// The disk as this program uses it; one implementation for each system. Paths are UTF-8 with the system's own
// separator. A file is opened with all sharing, read at once and closed, so that programs that write it are not
// disturbed.

#ifdef _WIN32
inline constexpr char kSeparator = '\\';
#else
inline constexpr char kSeparator = '/';
#endif

/// A moment in nanoseconds since the start of 1970, UTC.
using FileTime = std::int64_t;

/// Larger than any note that the program opens; larger files are not read.
inline constexpr std::uint64_t kLargestFile = 64U << 20U;

struct FolderEntry {
    std::string name;
    std::uint64_t size = 0;
    FileTime modified = 0;
};

/// The files of a folder, without subfolders, in no order; nothing if it cannot be read.
[[nodiscard]] std::optional<std::vector<FolderEntry>> ListFiles(const std::string& folder);
[[nodiscard]] bool IsFile(const std::string& path);
[[nodiscard]] bool IsFolder(const std::string& path);
/// Size and time of one file; its name is the path's last part.
[[nodiscard]] std::optional<FolderEntry> FactsOf(const std::string& path);
/// The whole content; false if the file is missing, locked, a folder, or larger than kLargestFile. `bytes` keeps its
/// memory from one call to the next.
[[nodiscard]] bool ReadInto(const std::string& path, std::string& bytes);
[[nodiscard]] std::optional<std::string> ReadBytes(const std::string& path);

/// Creates a file that does not exist yet and makes its bytes durable. On failure, leaves no file.
[[nodiscard]] bool WriteNewFile(const std::string& path, std::string_view bytes);
/// Creates or replaces a file; the bytes are durable under another name first.
[[nodiscard]] bool OverwriteFile(const std::string& path, std::string_view bytes);
/// Moves a file to a name that must be free. On failure, the file stays in its place.
[[nodiscard]] bool MoveToFreeName(const std::string& from, const std::string& to);
[[nodiscard]] bool RemoveFile(const std::string& path);
/// Creates the last folder of a path; false if it exists already or cannot be created.
[[nodiscard]] bool MakeFolder(const std::string& path);
/// The absolute path without "." and ".."; the file need not exist.
[[nodiscard]] std::string AbsolutePath(const std::string& path);
/// Sets the time of a file's last change.
[[nodiscard]] bool SetModified(const std::string& path, FileTime modified);

// Common to all systems.

[[nodiscard]] std::string JoinPaths(std::string_view folder, std::string_view name);
[[nodiscard]] std::string_view LastPart(std::string_view path);
/// Whether the name ends in ".qln", in any letter case.
[[nodiscard]] bool HasNoteEnding(std::string_view name);

}  // namespace quillo::qln
