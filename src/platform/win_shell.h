#pragma once

#include <utility>

#include "platform/patience.h"
#include "ports/shell.h"

namespace quillo {

/// The Windows shell.
class WinShell : public Shell {
  public:
    WinShell() = default;
    explicit WinShell(Patience patience) : patience_(std::move(patience)) {}

    [[nodiscard]] std::u16string FolderPath(SpecialFolder folder) override;
    [[nodiscard]] std::u16string WindowsFolder() override;
    [[nodiscard]] std::u16string SystemFolder() override;
    [[nodiscard]] std::u16string ProgramPath() override;
    [[nodiscard]] std::u16string FullPath(std::u16string_view path) override;
    [[nodiscard]] std::u16string FullLongPath(std::u16string_view path) override;
    using Shell::Open;
    bool Open(std::u16string_view path, std::u16string_view arguments) override;
    bool Start(std::u16string_view program, std::u16string_view arguments) override;
    [[nodiscard]] std::u16string LinkTarget(std::u16string_view path) override;
    [[nodiscard]] RecycleResult Recycle(std::u16string_view path) override;
    [[nodiscard]] std::u16string NewUniqueIdentifier() override;

  private:
    void WaitUntilUnused(const std::u16string& path);

    Patience patience_;
};

}  // namespace quillo
