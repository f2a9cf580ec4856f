#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "notes/open_note.h"

namespace quillo {

class FileStore;
class LegacyNotes;
class OpenNotes;
class Random;
class Shell;
struct Program;

/// Content that asks for a new note.
inline constexpr std::u16string_view kNewNoteContent = u"(new)";

/// Makes open notes: new ones, and those of files.
class NoteOpening {
  public:
    /// `world.owner` is the program's collection of open notes.
    NoteOpening(Program& program, NoteWorld world, FileStore& files, Shell& shell, Random& random, LegacyNotes& legacy)
        : program_(program), world_(world), files_(files), shell_(shell), random_(random), legacy_(legacy) {}

    /// False, after telling the user, when 50 notes are open.
    [[nodiscard]] bool CanOpenAnotherNote();
    /// Opens a file as a note. One from outside the notes folder moves in: once its note is stored, the file is deleted
    /// unless it holds the keep marker; if not every byte of it could be stored, it is recycled instead. A file that
    /// cannot be read as text stays, and nothing happens.
    void OpenNoteFile(std::u16string_view path);
    /// Makes a note and shows it where its content says nothing else; null when 50 notes are open, and when its window
    /// cannot be made or does not take the whole text. `openedPath` is the file that the content came from, or empty.
    OpenNote* CreateNote(const NoteFile& content, std::u16string_view openedPath = {});
    /// The user's command: a new empty note with the keyboard. Nothing when 50 notes are open.
    void CreateNewNote();

  private:
    [[nodiscard]] std::optional<std::string> ReadTextFile(std::u16string_view path);
    [[nodiscard]] OpenNote* FindStoredAt(std::u16string_view path);
    void FillNewNote(OpenNote& note) const;
    void TakeIn(OpenNote& note, std::u16string_view path, const NoteFile& content);
    void MoveIntoNotesFolder(OpenNote& note, std::u16string_view path, std::u16string_view text, bool keepSource);
    [[nodiscard]] bool IsNew(const NoteFile& content);

    Program& program_;
    NoteWorld world_;
    FileStore& files_;
    Shell& shell_;
    Random& random_;
    LegacyNotes& legacy_;
};

}  // namespace quillo
