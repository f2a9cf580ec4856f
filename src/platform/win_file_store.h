#pragma once

#include <cstdint>
#include <utility>

#include "platform/patience.h"
#include "ports/file_store.h"

namespace quillo {

/// The disk.
class WinFileStore : public FileStore {
  public:
    WinFileStore() = default;
    explicit WinFileStore(Patience patience) : patience_(std::move(patience)) {}

    [[nodiscard]] bool FileExists(std::u16string_view path) override;
    [[nodiscard]] std::optional<FileEntry> Find(std::u16string_view path) override;
    [[nodiscard]] std::optional<std::string> Read(std::u16string_view path) override;
    [[nodiscard]] HoldResult Hold(std::u16string_view path, std::uint64_t mostBytes) override;
    [[nodiscard]] FileError Create(std::u16string_view path, std::string_view bytes) override;
    [[nodiscard]] FileError MoveOver(std::u16string_view from, std::u16string_view to) override;
    [[nodiscard]] FileError Rename(std::u16string_view from, std::u16string_view to) override;
    [[nodiscard]] FileError Delete(std::u16string_view path) override;
    bool CreateFolder(std::u16string_view path) override;
    [[nodiscard]] std::vector<FileEntry> List(std::u16string_view folder, std::u16string_view extension) override;
    [[nodiscard]] std::u16string TemporaryName(std::u16string_view prefix) override;
    [[nodiscard]] std::u16string TemporaryFolder() override;

  private:
    /// Repeats a call that another program's open file blocks. `target` is the file that must be writable.
    template <typename Call>
    FileError Patiently(const std::u16string& target, Call call);

    Patience patience_;
};

}  // namespace quillo
