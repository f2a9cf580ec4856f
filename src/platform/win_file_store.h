#pragma once

#include "ports/file_store.h"

namespace quillo {

/// The disk.
class WinFileStore : public FileStore {
  public:
    [[nodiscard]] bool FileExists(std::u16string_view path) override;
    [[nodiscard]] std::optional<std::string> Read(std::u16string_view path) override;
    [[nodiscard]] bool Write(std::u16string_view path, std::string_view bytes) override;
    [[nodiscard]] bool Replace(std::u16string_view path, std::string_view bytes) override;
    [[nodiscard]] bool Delete(std::u16string_view path) override;
    bool CreateFolder(std::u16string_view path) override;
    [[nodiscard]] std::vector<std::u16string> List(std::u16string_view folder, std::u16string_view extension) override;
    [[nodiscard]] std::u16string TemporaryName(std::u16string_view prefix) override;
};

}  // namespace quillo
