#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "ports/file_store.h"

namespace quillo {

/// A disk in memory. Paths are found in any letter case and kept as first written. Storing a file creates its folders.
/// A test can make any call that changes the disk fail, or make it the last one before a power failure.
class FakeFileStore : public FileStore {
  public:
    // The port's operations.
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
    [[nodiscard]] std::u16string TemporaryFolder() override { return u"C:\\Temp"; }

    // For tests: not logged, and never fails.
    void Put(std::u16string_view path, std::string_view bytes);
    void Remove(std::u16string_view path);
    void PutFolder(std::u16string_view path);
    /// Removes its files as well. No file can be created in the folder until it exists again.
    void RemoveFolder(std::u16string_view path);
    [[nodiscard]] bool FolderExists(std::u16string_view path) const;
    [[nodiscard]] std::size_t FileCount() const { return files_.size(); }
    /// The paths of all files whose name has that ending, in the order of their folded paths.
    [[nodiscard]] std::vector<std::u16string> PathsEndingIn(std::u16string_view ending) const;

    /// Every creation of a file or folder fails, as on a full disk.
    void FailWrites(bool fail) { failWrites_ = fail; }
    /// How many bytes all files together may have; nothing means no limit.
    void SetCapacity(std::optional<std::size_t> bytes) { capacity_ = bytes; }
    /// Every operation on that path fails, as when another program has the file open.
    void FailPath(std::u16string_view path, FileError error = FileError::InUse);
    void HealPath(std::u16string_view path);
    /// That file can be read but not changed, as when another program reads it.
    void HoldShared(std::u16string_view path);
    void ReleaseShared(std::u16string_view path);
    /// The next `calls` calls that change the disk succeed; those after them fail.
    void FailAfter(int calls);
    /// The same, but the first call that fails stops halfway: a file that is being created keeps half of its bytes.
    void CutPowerAfter(int calls);
    /// The power is back: nothing fails any more.
    void Revive();
    /// How many calls have changed the disk, or tried to, since the last FailAfter, CutPowerAfter or Revive.
    [[nodiscard]] int ChangingCalls() const { return calls_; }

    /// The calls that change the disk, in order: "Create C:\a.qln", "MoveOver ..." (the target), "Delete ...".
    std::vector<std::u16string> log;

  private:
    struct File {
        std::u16string path;
        std::string bytes;
        std::uint64_t modified = 0;
    };
    class Held;

    /// Counts and logs a call; returns an error if the call is to fail.
    [[nodiscard]] FileError Begin(std::u16string_view call, std::u16string_view path);
    [[nodiscard]] FileError ErrorAt(const std::u16string& key) const;
    [[nodiscard]] bool FitsOnDisk(std::size_t bytes) const;
    FileError Move(std::u16string_view from, std::u16string_view to, bool overwrite);
    void PutFoldersOf(std::u16string_view path);

    std::map<std::u16string, File> files_;  // by folded path
    std::set<std::u16string> folders_;
    std::set<std::u16string> removedFolders_;
    std::map<std::u16string, FileError> failing_;
    std::set<std::u16string> held_;
    std::set<std::u16string> heldShared_;
    std::optional<std::size_t> capacity_;
    std::optional<int> callsLeft_;
    std::uint64_t clock_ = 0;
    int calls_ = 0;
    int temporaryNames_ = 0;
    bool failWrites_ = false;
    bool powerCut_ = false;  ///< the next call to fail is the one during which the power fails
};

}  // namespace quillo
