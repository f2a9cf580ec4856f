#pragma once

#include <string>

namespace quillo::e2e {

/// Moves the user's local application data, with the notes in it, to a test disk for the life of the object.
/// scripts/lib.sh creates these disks if it has the rights, and names them in the environment.
class DataOnTestDisk {
  public:
    /// `variable` is QUILLO_SMALL_DISK, a disk of a megabyte, or QUILLO_PROTECTED_DISK, which is read-only and has one
    /// note.
    explicit DataOnTestDisk(const wchar_t* variable);
    DataOnTestDisk(const DataOnTestDisk&) = delete;
    DataOnTestDisk& operator=(const DataOnTestDisk&) = delete;
    ~DataOnTestDisk();

    [[nodiscard]] bool IsThere() const { return !path_.empty(); }
    [[nodiscard]] static const char* WhyNot() { return "only root can make the disks of the tests"; }
    [[nodiscard]] std::wstring MakersFolder() const { return path_ + L"\\Marrowind"; }
    [[nodiscard]] std::wstring NotesFolder() const { return MakersFolder() + L"\\Notes"; }
    /// Writes files until not another byte fits.
    void Fill() const;
    /// Deletes those files.
    void MakeRoom() const;

  private:
    std::wstring path_;
    std::wstring before_;
};

/// Removes the folder in which Wine keeps its Recycle Bin: deleted files are then deleted permanently, as Windows does
/// on a volume without one.
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
