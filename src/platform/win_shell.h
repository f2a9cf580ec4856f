#pragma once

#include "ports/shell.h"

namespace quillo {

/// The Windows shell.
class WinShell : public Shell {
  public:
    [[nodiscard]] std::u16string FolderPath(SpecialFolder folder) override;
    [[nodiscard]] std::u16string WindowsFolder() override;
    [[nodiscard]] std::u16string SystemFolder() override;
    [[nodiscard]] std::u16string ProgramPath() override;
    [[nodiscard]] std::u16string FullPath(std::u16string_view path) override;
    bool Open(std::u16string_view path) override;
    [[nodiscard]] std::u16string LinkTarget(std::u16string_view path) override;
    [[nodiscard]] bool Recycle(std::u16string_view path) override;
    [[nodiscard]] std::u16string NewUniqueIdentifier() override;
};

}  // namespace quillo
