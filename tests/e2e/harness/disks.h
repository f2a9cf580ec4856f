#pragma once

#include <string>

namespace quillo::e2e {

/// The user's local application data, with the notes in it, on a disk of the tests' own until the object goes.
/// scripts/lib.sh makes these disks where it may, and names them in the environment.
class DataOnTestDisk {
  public:
    /// `variable` is QUILLO_SMALL_DISK, a disk of a megabyte, or QUILLO_PROTECTED_DISK, which nobody can write to and
    /// which holds one note.
    explicit DataOnTestDisk(const wchar_t* variable);
    DataOnTestDisk(const DataOnTestDisk&) = delete;
    DataOnTestDisk& operator=(const DataOnTestDisk&) = delete;
    ~DataOnTestDisk();

    [[nodiscard]] bool IsThere() const { return !path_.empty(); }
    [[nodiscard]] static const char* WhyNot() { return "only root can make the disks of the tests"; }
    [[nodiscard]] std::wstring MakersFolder() const { return path_ + L"\\Marrowind"; }
    [[nodiscard]] std::wstring NotesFolder() const { return MakersFolder() + L"\\Notes"; }
    /// Writes files until there is no room for another byte.
    void Fill() const;
    /// Deletes those files.
    void MakeRoom() const;

  private:
    std::wstring path_;
    std::wstring before_;
};

/// Takes the folder away in which Wine keeps its Recycle Bin: what is thrown away is then deleted for good, as Windows
/// does on a volume that has none.
class WithoutRecycleBin {
  public:
    WithoutRecycleBin();
    WithoutRecycleBin(const WithoutRecycleBin&) = delete;
    WithoutRecycleBin& operator=(const WithoutRecycleBin&) = delete;
    ~WithoutRecycleBin();
    [[nodiscard]] bool Works() const { return works_; }

  private:
    std::wstring folder_;
    bool works_ = false;
};

}  // namespace quillo::e2e
