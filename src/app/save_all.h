#pragma once

#include <set>
#include <string>

#include "notes/note_saver.h"

namespace quillo {

class Hints;
class LegacyNotes;
class OpenNotes;

/// The program's save-all: saves every open note, clears the old store, and keeps the disk reserve as large as the
/// notes need.
class SaveAll {
  public:
    SaveAll(OpenNotes& notes, LegacyNotes& legacy, NoteStore& store) : notes_(notes), legacy_(legacy), store_(store) {}

    void Run();

  private:
    OpenNotes& notes_;
    LegacyNotes& legacy_;
    NoteStore& store_;
};

/// Informs the user once when notes cannot be saved; the notes themselves show which and why.
class SaveFailures : public SaveFailureListener {
  public:
    explicit SaveFailures(Hints& hints) : hints_(hints) {}

    void NoteCannotBeSaved(const std::u16string& noteKey, FileError error) override;
    void NoteIsSavedAgain(const std::u16string& noteKey) override { failing_.erase(noteKey); }

  private:
    Hints& hints_;
    std::set<std::u16string> failing_;  ///< keys of notes
};

}  // namespace quillo
