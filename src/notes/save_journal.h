#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillo {

class FileStore;
class Shell;

/// A file as it was at some moment.
struct FileVersion {
    std::u16string path;
    std::uint64_t hash = 0;  ///< ContentHash of its bytes; 0 where there was no file
    friend bool operator==(const FileVersion&, const FileVersion&) = default;
};

/// A step that changes more than one file, written down before the first of them is touched. If the program dies in
/// between, the next start finishes the step, provided that the files are still what they were.
struct PendingStep {
    enum class Kind {
        Write,    ///< `prepared` was about to take the place of another file
        Move,     ///< a note got a new home: `from` is deleted when `to` is whole; an empty `to` is not asked for
        Recycle,  ///< a deleted note: `to` belongs in the Recycle Bin, then `from` is deleted
        Rescue,   ///< `from` could not be written, so its note is in `to`
    };
    Kind kind = Kind::Write;
    std::u16string prepared;  ///< a file that is not whole yet; removed by the next start
    FileVersion from;
    FileVersion to;
    friend bool operator==(const PendingStep&, const PendingStep&) = default;
};

/// Keeps each pending step in a small file of its own, beside the notes folder or, where that cannot be written, in the
/// temporary folder.
class SaveJournal {
  public:
    /// `notesFolder` may be filled in later, before the first call.
    SaveJournal(FileStore& files, Shell& shell, const std::u16string& notesFolder)
        : files_(files), shell_(shell), notesFolder_(notesFolder) {}

    /// The record's path, by which it is ended; "" when it could not be written. The step is then taken without.
    [[nodiscard]] std::u16string Begin(const PendingStep& step);
    /// The step is complete, or was given up. Nothing for "".
    void End(std::u16string_view record);

    struct Record {
        std::u16string path;
        PendingStep step;
    };
    /// What earlier runs have left. A record that is not whole belongs to a step that never began: it is removed.
    [[nodiscard]] std::vector<Record> Unfinished();

  private:
    [[nodiscard]] std::vector<std::u16string> Folders() const;

    FileStore& files_;
    Shell& shell_;
    const std::u16string& notesFolder_;
};

}  // namespace quillo
