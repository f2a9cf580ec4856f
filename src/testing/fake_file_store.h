#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "ports/file_store.h"

namespace quillo {

/// A disk in memory. Paths are found in any letter case and kept as first written; the folders of a written file
/// come by themselves. It also remembers what a power cut would leave: of a plain write an empty file, of a
/// replacement the old bytes or the new ones.
class FakeFileStore : public FileStore {
  public:
    // The port.
    [[nodiscard]] bool FileExists(std::u16string_view path) override;
    [[nodiscard]] std::optional<std::string> Read(std::u16string_view path) override;
    [[nodiscard]] bool Write(std::u16string_view path, std::string_view bytes) override;
    [[nodiscard]] bool Replace(std::u16string_view path, std::string_view bytes) override;
    [[nodiscard]] bool Delete(std::u16string_view path) override;
    bool CreateFolder(std::u16string_view path) override;
    [[nodiscard]] std::vector<std::u16string> List(std::u16string_view folder, std::u16string_view extension) override;
    [[nodiscard]] std::u16string TemporaryName(std::u16string_view prefix) override;

    // The test's side: not logged, never failing.
    void Put(std::u16string_view path, std::string_view bytes);
    void PutFolder(std::u16string_view path);
    [[nodiscard]] bool FolderExists(std::u16string_view path) const;
    [[nodiscard]] std::size_t FileCount() const { return files_.size(); }

    /// Every write, replacement and creation of a folder fails, as on a full disk.
    void FailWrites(bool fail) { failWrites_ = fail; }
    /// Everything fails on that path, as when another program has it locked.
    void FailPath(std::u16string_view path);
    void HealPath(std::u16string_view path);

    /// The machine dies and comes back: only durable bytes are left.
    void CutPower() { files_ = durable_; }
    /// The machine dies in the middle of the next replacement.
    void CutPowerDuringReplace() { cutDuringReplace_ = true; }

    /// The calls that change the disk, in order: "Write C:\a.qln", "Replace ...", "Delete ...", "CreateFolder ...".
    std::vector<std::u16string> log;

  private:
    struct File {
        std::u16string path;
        std::string bytes;
    };
    using Files = std::map<std::u16string, File>;  // by folded path

    [[nodiscard]] bool CanWrite(const std::u16string& key) const;
    void PutFoldersOf(std::u16string_view path);

    Files files_;
    Files durable_;
    std::set<std::u16string> folders_;
    std::set<std::u16string> failing_;
    bool failWrites_ = false;
    bool cutDuringReplace_ = false;
    int temporaryNames_ = 0;
};

}  // namespace quillo
