#pragma once

#include <string>

#include "notes/note_saver.h"
#include "ports/date_services.h"

namespace quillo {

class Hints;
class NoteSharing;
class UserNotice;
struct Settings;

/// The direction through the visible notes in the order of their creation; wraps around at both ends.
enum class NoteDirection { Forward, Backward };

/// The collection of open notes as a note sees it.
class NoteOwner {
  public:
    virtual ~NoteOwner() = default;
    /// Removes the note from the open notes. The object lives until its own handlers have returned.
    virtual void RemoveNote(const std::u16string& noteKey) = 0;
    /// False once the note was removed: must be checked after anything that pumps messages.
    [[nodiscard]] virtual bool IsOpen(const std::u16string& noteKey) const = 0;
    /// Saves every open note that has an unsaved change: before a call that may block the program for long.
    virtual void SaveUnsavedNotes() = 0;
    /// Gives the keyboard focus to the next or previous visible note, if there is one.
    virtual void ActivateNeighbor(const std::u16string& noteKey, NoteDirection direction) = 0;
};

/// What all notes share.
struct NoteServices {
    const Settings& settings;
    SaverServices saving;
    DateServices dates;
    UserNotice& notice;
    Hints& hints;
    NoteSharing& sharing;
};

}  // namespace quillo
