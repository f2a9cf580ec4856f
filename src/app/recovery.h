#pragma once

#include <string>
#include <vector>

#include "notes/note_store.h"

namespace quillo {

class LocaleText;

/// The work of a start before it opens the notes: it finishes the steps during which an earlier run ended, and puts
/// notes back that could not be saved in their place. Running it twice changes nothing.
class Recovery {
  public:
    Recovery(NoteStore& store, LocaleText& locale, const std::u16string& notesFolder)
        : store_(store), files_(store.Files()), locale_(locale), notesFolder_(notesFolder) {}

    struct Result {
        int restored = 0;                   ///< notes that are back in their place
        std::vector<std::u16string> files;  ///< files of notes to be opened in addition to those of the notes folder
    };
    [[nodiscard]] Result Run();

  private:
    void Finish(const SaveJournal::Record& record, Result& result);
    /// True if the record is no longer needed.
    [[nodiscard]] bool FinishRecycling(const PendingStep& step);
    /// The same.
    [[nodiscard]] bool FinishRescue(const PendingStep& step, Result& result);
    /// Deletes storage copies that newer ones have replaced, which an earlier start has kept.
    void RemoveReplacedCopies();
    /// Moves complete prepared storage copies to their places, or deletes them: all, or those for one copy.
    void AdoptPreparedCopies(std::u16string_view onlyCopy);
    void Adopt(const FileEntry& prepared, const std::u16string& copy);

    NoteStore& store_;
    FileStore& files_;
    LocaleText& locale_;
    const std::u16string& notesFolder_;
};

}  // namespace quillo
