#pragma once

#include <string>
#include <vector>

#include "notes/note_store.h"

namespace quillo {

class LocaleText;

/// What a start does before it opens the notes: it finishes the steps in whose middle an earlier run has ended, and
/// puts notes back that could not be saved at their place. Doing it twice changes nothing.
class Recovery {
  public:
    Recovery(NoteStore& store, LocaleText& locale, const std::u16string& notesFolder)
        : store_(store), files_(store.Files()), locale_(locale), notesFolder_(notesFolder) {}

    struct Result {
        int restored = 0;                   ///< notes that are at their place again
        std::vector<std::u16string> files;  ///< files of notes to be opened besides those of the notes folder
    };
    [[nodiscard]] Result Run();

  private:
    void Finish(const SaveJournal::Record& record, Result& result);
    void FinishMove(const SaveJournal::Record& record);
    void FinishRecycling(const PendingStep& step);
    /// True when the record has served its purpose.
    [[nodiscard]] bool FinishRescue(const PendingStep& step, Result& result);
    /// What an earlier start has kept of storage copies that newer ones have replaced.
    void RemoveReplacedCopies();
    /// Puts storage copies that were prepared and are whole in their places, or removes them: all, or those for one.
    void AdoptPreparedCopies(std::u16string_view onlyCopy);
    void Adopt(const FileEntry& prepared, const std::u16string& copy);
    [[nodiscard]] std::uint64_t HashOf(const std::u16string& path);
    [[nodiscard]] bool IsStill(const FileVersion& file);

    NoteStore& store_;
    FileStore& files_;
    LocaleText& locale_;
    const std::u16string& notesFolder_;
};

}  // namespace quillo
