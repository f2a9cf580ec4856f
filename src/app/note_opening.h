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

/// The content that means a new note.
inline constexpr std::u16string_view kNewNoteContent = u"(new)";

/// Who opens a file. A start does not pin the note or give it the keyboard focus, and does not save other notes first.
enum class OpenMode { ByUser, AtStart };

enum class OpenOutcome {
    Done,      ///< the file is a note now, or its note was shown
    InUse,     ///< another program has the file open: a later attempt may work
    TooLarge,  ///< left unchanged
    Failed,    ///< not a text file, missing, about to be deleted, or too many notes are open
};

/// Creates open notes: new ones, and those of files.
class NoteOpening {
  public:
    NoteOpening(Program& program, const NoteServices& services, Random& random, SaveAll& saveAll)
        : program_(program), services_(services), random_(random), saveAll_(saveAll) {}

    /// False, after a message to the user, if 50 notes are open.
    [[nodiscard]] bool CanOpenAnotherNote();
    /// Opens a file as a note. A file outside the notes folder moves in: once its note is stored with everything that
    /// was read, the file is deleted, unless it contains the keep marker. A file that cannot be read as text stays, and
    /// nothing happens.
    OpenOutcome OpenNoteFile(std::u16string_view path, OpenMode mode = OpenMode::ByUser);
    /// Creates a note and shows it unless its content says otherwise; null if 50 notes are open, or if its window
    /// cannot be created or does not take the whole text. `openedPath` is the file of the content, or empty.
    OpenNote* CreateNote(const NoteFile& content, std::u16string_view openedPath = {},
                         OpenMode mode = OpenMode::ByUser);
    /// The user's command: a new empty note with the keyboard focus. Does nothing if 50 notes are open.
    void CreateNewNote();

  private:
    [[nodiscard]] OpenNote* FindOpen(std::u16string_view path, const FileVersion& source);
    void FillNewNote(OpenNote& note) const;
    void MoveIntoNotesFolder(OpenNote& note, const NoteFile& content, HeldFile& source, std::u16string_view path);
    [[nodiscard]] bool IsStoredWhole(const OpenNote& note, const NoteFile& content);
    [[nodiscard]] bool IsNew(const NoteFile& content);
    void ReportUnopened(std::u16string_view path) const;

    Program& program_;
    NoteServices services_;
    Random& random_;
    SaveAll& saveAll_;
};

/// A larger file, in bytes, is not a note. A file whose text needs the element for characters beyond the code page may
/// be twice as large, because the longest possible note must open again.
inline constexpr std::uint64_t kLargestNoteFile = 16U << 20;

}  // namespace quillo
