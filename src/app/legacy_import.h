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

/// The old store, which kept notes as registry values. Its notes are turned into open notes once, at start-up; its
/// values go only when every one of them is in a file.
class LegacyNotes {
  public:
    LegacyNotes(RegistryApi& registry, OpenNotes& notes, Random& random)
        : registry_(registry), notes_(notes), random_(random) {}

    /// Opens every note of the store, however many notes are open. True when one of them is not visible afterwards.
    /// When the store cannot be read whole, or one of its notes cannot be made whole, nothing is imported in this start
    /// and the store keeps them all.
    [[nodiscard]] bool Import(NoteWorld world);

    /// Called when all open notes have saved themselves: the store is cleared if that has worked for all of its notes.
    void ClearWhatIsSaved();
    /// True while the store still has the note, with this very text.
    [[nodiscard]] bool StillHolds(const OpenNote& note) const;

  private:
    /// Null when the note's window cannot be made or does not take the whole text.
    [[nodiscard]] OpenNote* ImportNote(NoteWorld world, const TesselRegistry& store, std::int64_t number);
    /// Closes the notes imported so far, which are in no file yet.
    void TakeBackImport();
    void Clear();

    RegistryApi& registry_;
    OpenNotes& notes_;
    Random& random_;
    bool imported_ = false;
    std::set<std::int64_t> numbers_;  // of the notes imported; no value of another is touched
    /// The texts, by their keys, of imported notes that are not yet in a file.
    std::map<std::u16string, std::u16string> unsaved_;
};

}  // namespace quillo
