#include "app/note_opening.h"

#include <utility>

#include "app/legacy_import.h"
#include "app/note_identifier.h"
#include "app/note_names.h"
#include "app/notes_folder.h"
#include "app/program.h"
#include "controls/swatch_palette.h"
#include "notes/note_codec.h"
#include "ports/clock.h"
#include "ports/file_store.h"
#include "ports/locale_text.h"
#include "ports/shell.h"
#include "ports/user_notice.h"
#include "util/ignore.h"

namespace quillo {

namespace {

constexpr std::u16string_view kLimitTitle = u"Can't open any more notes";
constexpr std::u16string_view kLimitText =
    u"Sorry, you can't open any more notes at this time.  (You can have up to 50.)  Please close one or more notes and "
    u"try again.";
static_assert(kMaxOpenNotes == 50, "the limit stands in the text");

}  // namespace

bool NoteOpening::CanOpenAnotherNote() {
    if (program_.openNotes.Count() < kMaxOpenNotes) return true;
    if (!program_.os.windows2000OrLater) {
        world_.notice.Inform(kLimitText);
    } else if (!program_.settings.disableBalloonHelp) {
        world_.notice.Balloon(kLimitTitle, kLimitText, BalloonIcon::Warning);
    }
    return false;
}

void NoteOpening::OpenNoteFile(std::u16string_view path) {
    if (!CanOpenAnotherNote()) return;
    if (!program_.startingUp) legacy_.SaveAllNotesAndClear();

    const std::u16string plainPath(StripQuotes(path));
    // While the saved notes are loaded no file comes twice.
    if (OpenNote* open = program_.loadingNotes ? nullptr : FindStoredAt(plainPath)) {
        open->Popup();
        open->Activate();
        return;
    }
    const std::optional<std::string> bytes = ReadTextFile(plainPath);
    if (!bytes) return;
    NoteFile content = ParseNoteFile(*bytes, world_.locale);
    if (!content.hasTags && content.text.empty()) content.text = NameWithoutExtension(FileNameOfPath(plainPath));

    OpenNote* note = CreateNote(content, plainPath);
    if (!note) return;
    TakeIn(*note, plainPath, content);
    if (note->Data().StoragePath.empty()) {
        const bool keepSource = content.keepsFile;
        MoveIntoNotesFolder(*note, plainPath, content.text, keepSource);
    }
}

OpenNote* NoteOpening::CreateNote(const NoteFile& content, std::u16string_view openedPath) {
    if (!CanOpenAnotherNote()) return nullptr;
    OpenNote* added = program_.openNotes.Add(world_, NewNoteIdentifier(program_.openNotes, random_));
    if (added == nullptr) return nullptr;
    OpenNote& note = *added;

    if (IsNew(content)) {
        FillNewNote(note);
    } else if (!note.SetText(content.text)) {
        note.DestroyNote();  // kept, it would be saved without the rest of its text
        return nullptr;
    }
    // Whether the tags put the note on the screen, in its colours, or said that it stays off it.
    const bool settled = content.hasTags && note.SetupNoteFromTags(content, openedPath);
    if (!content.hasTags && program_.settings.randomNoteColor) {
        const ColorScheme& scheme = RandomScheme(random_);
        note.SetOwnColors(scheme.note, scheme.border, scheme.text);
    } else if (!settled) {
        note.UpdateColors();
    }
    note.SetNoteEffects();
    if (program_.settings.autoPinNewNotes && !program_.startingUp) note.SetPinned(true);
    if (!settled) note.Popup();
    return &note;
}

void NoteOpening::CreateNewNote() {
    NoteFile newNote;
    newNote.text = kNewNoteContent;
    if (OpenNote* note = CreateNote(newNote)) note->Activate();
}

/// Nothing for a missing, locked or unreadable file, a folder, and a file with NUL characters, which is no text.
std::optional<std::string> NoteOpening::ReadTextFile(std::u16string_view path) {
    std::optional<std::string> bytes = files_.Read(path);
    if (bytes && bytes->find('\0') != std::string::npos) return std::nullopt;
    return bytes;
}

/// The open note whose storage copy is that file. Two notes on one file would overwrite each other's text, and closing
/// one would delete the file under the other.
OpenNote* NoteOpening::FindStoredAt(std::u16string_view path) {
    const std::u16string wanted = world_.locale.ToLower(path);
    OpenNote* found = nullptr;
    program_.openNotes.ForEach([&](OpenNote& note) {
        const std::u16string& stored = note.Data().StoragePath;
        if (!stored.empty() && world_.locale.ToLower(stored) == wanted) found = &note;
    });
    return found;
}

/// Intended: a file that holds nothing but "(new)" or "/new" also makes an empty note.
bool NoteOpening::IsNew(const NoteFile& content) {
    if (content.hasTags) return false;
    const std::u16string lower = world_.locale.ToLower(content.text);
    return lower == kNewNoteContent || lower == u"/new";
}

void NoteOpening::FillNewNote(OpenNote& note) const {
    if (program_.settings.timestampNewNotes) note.AddTimestamp();
}

/// A file of the notes folder becomes the note's storage copy, any other its own file. A file that the program named
/// for the note is no file of its own: the note keeps none.
void NoteOpening::TakeIn(OpenNote& note, std::u16string_view path, const NoteFile& content) {
    if (IsInNotesFolder(path, program_.notesFolder, world_.locale)) {
        note.SetStoragePath(std::u16string(path));
        return;
    }
    note.SetFileName(content.kind == FileKind::ProgramNamed ? FileNameOf(content, path, {}, world_.locale)
                                                            : std::u16string(path));
}

void NoteOpening::MoveIntoNotesFolder(OpenNote& note, std::u16string_view path, std::u16string_view text,
                                      bool keepSource) {
    note.MarkChanged();
    const bool stored = note.PersistNote();
    if (keepSource) return;
    // A storage copy with "?" for what the code page cannot hold is not the whole text.
    if (stored && note.Text() == text) {
        Ignore(files_.Delete(path), "a source that cannot be deleted stays, and the note is safe all the same");
    } else {
        // The source may be the only whole copy: it goes where the user can take it back from.
        Ignore(shell_.Recycle(path), "what cannot be recycled stays");
    }
}

}  // namespace quillo
