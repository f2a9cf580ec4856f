#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillo {

class FileStore;
class Shell;

/// A file as it was at one moment.
struct FileVersion {
    std::u16string path;
    std::uint64_t hash = 0;  ///< ContentHash of its bytes; 0 if there was no file
    friend bool operator==(const FileVersion&, const FileVersion&) = default;
};

/// Whether a file still is what was recorded.
enum class FileState { Same, Different, Unreadable };

/// A step that changes more than one file, recorded before the first of them is changed. If the program dies during the
/// step, the next start finishes it, provided that the files are still the recorded ones.
struct PendingStep {
    enum class Kind {
        Write,    ///< `prepared` was about to replace another file
        Move,     ///< a note moved: `from` is deleted once `to` is complete; an empty `to` is not checked
        Recycle,  ///< a deleted note: `to` belongs in the Recycle Bin, then `from` is deleted
        Rescue,   ///< `from` could not be written, so its note is in `to`
    };
    Kind kind = Kind::Write;
    std::u16string prepared;  ///< a file that is not complete yet; the next start removes it
    FileVersion from;
    FileVersion to;
    friend bool operator==(const PendingStep&, const PendingStep&) = default;
};

/// Keeps each pending step in a small file of its own, next to the notes folder or, if that is not writable, in the
/// temporary folder.
class SaveJournal {
  public:
    /// `notesFolder` may be set later, before the first call.
    SaveJournal(FileStore& files, Shell& shell, const std::u16string& notesFolder)
        : files_(files), shell_(shell), notesFolder_(notesFolder) {}

    /// The path of the record, which End takes; "" if it could not be written. The step then runs without a record.
    [[nodiscard]] std::u16string Begin(const PendingStep& step);
    /// The step is complete, or was given up. Does nothing for "".
    void End(std::u16string_view record);

    struct Record {
        std::u16string path;
        PendingStep step;
    };
    /// The steps that earlier runs have left. An incomplete record belongs to a step that never began: it is removed.
    [[nodiscard]] std::vector<Record> Unfinished();

  private:
    [[nodiscard]] std::vector<std::u16string> Folders() const;

    FileStore& files_;
    Shell& shell_;
    const std::u16string& notesFolder_;
};

}  // namespace quillo
