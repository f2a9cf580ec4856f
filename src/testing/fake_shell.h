#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "ports/shell.h"

namespace quillo {

class FakeFileStore;

/// A shell with the special folders of a user named Ann. If it has a disk, recycling removes the file from it.
class FakeShell : public Shell {
  public:
    struct Recycled {
        std::u16string path;
        std::string content;  ///< "" without a disk
    };
    struct IgnoreCase {
        bool operator()(const std::u16string& a, const std::u16string& b) const;
    };

    FakeShell();
    explicit FakeShell(FakeFileStore& files);

    // The port's operations.
    [[nodiscard]] std::u16string FolderPath(SpecialFolder folder) override;
    [[nodiscard]] std::u16string WindowsFolder() override { return windowsFolder; }
    [[nodiscard]] std::u16string SystemFolder() override { return systemFolder; }
    [[nodiscard]] std::u16string ProgramPath() override { return programPath; }
    [[nodiscard]] std::u16string FullPath(std::u16string_view path) override;
    [[nodiscard]] std::u16string FullLongPath(std::u16string_view path) override;
    using Shell::Open;
    bool Open(std::u16string_view path, std::u16string_view arguments) override;
    bool Start(std::u16string_view program, std::u16string_view arguments) override;
    [[nodiscard]] std::u16string LinkTarget(std::u16string_view path) override;
    [[nodiscard]] RecycleResult Recycle(std::u16string_view path) override;
    /// {00000000-0000-0000-0000-000000000001} and so on.
    [[nodiscard]] std::u16string NewUniqueIdentifier() override;

    /// "" means that the folder does not exist.
    void SetFolder(SpecialFolder folder, std::u16string_view path) { folders_[folder] = path; }
    void SetLink(std::u16string_view path, std::u16string_view target);

    std::u16string windowsFolder = u"C:\\Windows";
    std::u16string systemFolder = u"C:\\Windows\\System32";
    std::u16string programPath = u"C:\\Program Files\\Quillo\\quillo.exe";
    std::u16string currentFolder = u"C:\\Users\\ann";
    std::map<std::u16string, std::u16string, IgnoreCase> linkTargets;
    std::map<std::u16string, std::u16string, IgnoreCase> longNames;  ///< of path parts that have a short name
    std::vector<std::u16string> opened;                              ///< with its arguments, if any, after a blank
    std::vector<std::u16string> started;                             ///< in the same form, also after a failure
    /// Identifiers are unique: those of a program that starts later come after those of the earlier one.
    void ContinueIdentifiers(const FakeShell& earlier) { identifiers_ = earlier.identifiers_; }

    std::vector<Recycled> recycled;
    bool openWorks = true;
    bool startWorks = true;
    /// The result of recycling a file.
    RecycleResult recycling = RecycleResult::Moved;

  private:
    FakeFileStore* files_ = nullptr;
    std::map<SpecialFolder, std::u16string> folders_;
    int identifiers_ = 0;
};

}  // namespace quillo
