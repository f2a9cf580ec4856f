#pragma once

#include <cstdint>
#include <string>

namespace quillo {

class FileStore;

/// A file next to the notes folder that only reserves space. On a full disk it is deleted, so that the notes still fit.
class DiskReserve {
  public:
    /// `notesFolder` may be set later, before the first call.
    DiskReserve(FileStore& files, const std::u16string& notesFolder) : files_(files), notesFolder_(notesFolder) {}

    /// Deletes the reserve. False if there was none.
    [[nodiscard]] bool GiveUp();
    /// Creates or enlarges the reserve if the disk has space: at least `bytes`, the size of all open notes.
    void Keep(std::uint64_t bytes);

  private:
    [[nodiscard]] std::u16string Path() const;

    FileStore& files_;
    const std::u16string& notesFolder_;
    std::uint64_t size_ = 0;  ///< of the reserve when last checked; 0 if unknown
};

}  // namespace quillo
