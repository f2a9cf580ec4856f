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
    using Shell::Open;
    bool Open(std::u16string_view path, std::u16string_view arguments) override;
    bool Start(std::u16string_view program, std::u16string_view arguments) override;
    [[nodiscard]] std::u16string LinkTarget(std::u16string_view path) override;
    [[nodiscard]] bool Recycle(std::u16string_view path) override;
    [[nodiscard]] std::u16string NewUniqueIdentifier() override;
};

}  // namespace quillo
