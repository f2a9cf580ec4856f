#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "notes/open_note.h"

namespace quillo {

class OpenNotes;
class Random;
class RegistryApi;
class TesselRegistry;

/// The old store, which kept notes as registry values. Start-up turns its notes into open notes once; the values are
/// deleted only when every one of the notes is in a file.
class LegacyNotes {
  public:
    LegacyNotes(RegistryApi& registry, OpenNotes& notes, Random& random)
        : registry_(registry), notes_(notes), random_(random) {}

    /// Opens every note of the store, even above the limit of open notes. True if one of them is not visible
    /// afterwards. If the store cannot be read completely, or a note cannot be created completely, this start imports
    /// nothing and the store keeps all notes.
    [[nodiscard]] bool Import(const NoteServices& services);

    /// Saves the imported notes and clears the store at once: until then, a kill leaves them in both places. Notes of
    /// files must have been opened before.
    void SaveImported();
    /// Called after all open notes have been saved: clears the store if that has worked for all of its notes.
    void ClearWhatIsSaved();
    /// True while the store still has the note with exactly this text.
    [[nodiscard]] bool StillHolds(const OpenNote& note) const;

  private:
    /// Null if the note's window cannot be created or does not take the whole text.
    [[nodiscard]] OpenNote* ImportNote(const NoteServices& services, const TesselRegistry& store, std::int64_t number,
                                       std::u16string storagePath);
    /// Closes the notes imported so far, which are in no file yet.
    void TakeBackImport();
    void Clear();

    RegistryApi& registry_;
    OpenNotes& notes_;
    Random& random_;
    bool imported_ = false;
    std::set<std::int64_t> numbers_;  // of the imported notes; values of other numbers are not changed
    /// The texts of imported notes that are not in a file yet, by note key.
    std::map<std::u16string, std::u16string> unsaved_;
};

}  // namespace quillo
