#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillo::e2e {

/// All bytes of a file; fails the test and returns "" if it cannot be read.
[[nodiscard]] std::string ReadBytes(const std::wstring& path);
void WriteBytes(const std::wstring& path, std::string_view bytes);
[[nodiscard]] bool FileExists(const std::wstring& path);
[[nodiscard]] bool FolderExists(const std::wstring& path);

/// Detects whether a file was written again: its bytes and the time of its last write.
struct FileMark {
    std::string bytes;
    std::uint64_t writeTime = 0;
    friend bool operator==(const FileMark&, const FileMark&) = default;
};
[[nodiscard]] FileMark MarkOf(const std::wstring& path);
/// The time of the file's last write, without opening it: polling does not disturb programs that write it.
[[nodiscard]] std::uint64_t WriteTimeOf(const std::wstring& path);

/// The names of the files in a folder whose names end in `ending`, sorted.
[[nodiscard]] std::vector<std::wstring> FilesIn(const std::wstring& folder, std::wstring_view ending = L"");

/// A folder of its own in the system's temporary folder, deleted with the object.
class TemporaryFolder {
  public:
    explicit TemporaryFolder(std::wstring_view name);
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    [[nodiscard]] const std::wstring& Path() const { return path_; }
    /// The full path of a file in it.
    [[nodiscard]] std::wstring operator/(std::wstring_view name) const { return path_ + L"\\" + std::wstring(name); }

  private:
    std::wstring path_;
};

}  // namespace quillo::e2e
