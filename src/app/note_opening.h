#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "notes/open_note.h"

namespace quillo {

class HeldFile;
class OpenNotes;
class Random;
class SaveAll;
struct Program;

/// Content that asks for a new note.
inline constexpr std::u16string_view kNewNoteContent = u"(new)";

/// Who opens a file: a start never pins the note by itself, never gives it the keyboard and never asks other notes to
/// save themselves first.
enum class OpenMode { ByUser, AtStart };

enum class OpenOutcome {
    Done,      ///< the file is a note now, or its note was shown
    InUse,     ///< another program has the file open: a later try may work
    TooLarge,  ///< left alone
    Failed,    ///< no text file, not there, or no room for another note
};

/// Makes open notes: new ones, and those of files.
class NoteOpening {
  public:
    /// `world.owner` is the program's collection of open notes.
    NoteOpening(Program& program, NoteWorld world, Random& random, SaveAll& saveAll)
        : program_(program), world_(world), random_(random), saveAll_(saveAll) {}

    /// False, after telling the user, when 50 notes are open.
    [[nodiscard]] bool CanOpenAnotherNote();
    /// Opens a file as a note. One from outside the notes folder moves in: once its note is stored with all that was
    /// read, the file is deleted, unless it holds the keep marker; else it stays. A file that cannot be read as text
    /// stays, and nothing happens.
    OpenOutcome OpenNoteFile(std::u16string_view path, OpenMode mode = OpenMode::ByUser);
    /// Makes a note and shows it where its content says nothing else; null when 50 notes are open, and when its window
    /// cannot be made or does not take the whole text. `openedPath` is the file that the content came from, or empty.
    OpenNote* CreateNote(const NoteFile& content, std::u16string_view openedPath = {},
                         OpenMode mode = OpenMode::ByUser);
    /// The user's command: a new empty note with the keyboard. Nothing when 50 notes are open.
    void CreateNewNote();

  private:
    [[nodiscard]] OpenNote* FindOpen(std::u16string_view path, const FileVersion& source);
    void FillNewNote(OpenNote& note) const;
    void MoveIntoNotesFolder(OpenNote& note, const NoteFile& content, HeldFile& source, std::u16string_view path);
    [[nodiscard]] bool IsStoredWhole(const OpenNote& note, const NoteFile& content);
    [[nodiscard]] bool IsNew(const NoteFile& content);
    void TellOfUnopened(std::u16string_view path) const;

    Program& program_;
    NoteWorld world_;
    Random& random_;
    SaveAll& saveAll_;
};

/// A file of more bytes is no note. One whose text needs the element for characters beyond the code page may be twice
/// as large, because a note of the most characters that a text box takes has to open again.
inline constexpr std::uint64_t kLargestNoteFile = 16U << 20;

}  // namespace quillo
