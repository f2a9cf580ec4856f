#pragma once

#include <cstdint>
#include <string>

namespace quillo {

class FileStore;

/// A file beside the notes folder that only takes room. On a full disk it is given up, so that the notes still fit.
class DiskReserve {
  public:
    /// `notesFolder` may be filled in later, before the first call.
    DiskReserve(FileStore& files, const std::u16string& notesFolder) : files_(files), notesFolder_(notesFolder) {}

    /// Makes room. False when there was no reserve.
    [[nodiscard]] bool GiveUp();
    /// Makes the reserve, or a larger one, if the disk has room: at least `bytes`, what all open notes need.
    void Keep(std::uint64_t bytes);

  private:
    [[nodiscard]] std::u16string Path() const;

    FileStore& files_;
    const std::u16string& notesFolder_;
    std::uint64_t size_ = 0;  ///< of the reserve as it was last seen; 0 when unknown
};

}  // namespace quillo
