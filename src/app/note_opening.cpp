#include "app/note_opening.h"

#include <utility>

#include "app/base/hints.h"
#include "app/base/notes_folder.h"
#include "app/note_identifier.h"
#include "app/program.h"
#include "app/save_all.h"
#include "controls/swatch_palette.h"
#include "notes/note_codec.h"
#include "notes/unicode_element.h"
#include "ports/clock.h"
#include "ports/file_store.h"
#include "ports/locale_text.h"
#include "ports/user_notice.h"
#include "util/content_hash.h"
#include "util/path_text.h"

namespace quillo {

namespace {

constexpr std::u16string_view kLimitTitle = u"Can't open any more notes";
constexpr std::u16string_view kLimitText =
    u"Sorry, you can't open any more notes at this time.  (You can have up to 50.)  Please close one or more notes and "
    u"try again.";
static_assert(kMaxOpenNotes == 50, "the text names the limit");

constexpr std::u16string_view kUnopenedTitle = u"A note cannot be opened";
const std::u16string kUnopenedText =
    u"Windows did not give Quillo a window that holds the whole note, so its file was left where it is: ";

HoldResult HoldNoteFile(FileStore& files, std::u16string_view path) {
    HoldResult held = files.Hold(path, 2 * kLargestNoteFile);
    if (!held.file || held.file->Bytes().size() <= kLargestNoteFile) return held;
    if (EndsWithUnicodeElement(held.file->Bytes())) return held;
    return {nullptr, FileError::TooLarge};
}

}  // namespace

bool NoteOpening::CanOpenAnotherNote() {
    if (program_.openNotes.Count() < kMaxOpenNotes) return true;
    services_.hints.ShowBalloonOrBox({kLimitTitle, kLimitText, BalloonIcon::Warning});
    return false;
}

OpenOutcome NoteOpening::OpenNoteFile(std::u16string_view path, OpenMode mode) {
    if (!CanOpenAnotherNote()) return OpenOutcome::Failed;
    if (mode == OpenMode::ByUser && !program_.startingUp) saveAll_.Run();

    const std::u16string plainPath(StripQuotes(path));
    if (mode == OpenMode::AtStart && services_.saving.store.IsBeingDeleted(plainPath)) return OpenOutcome::Failed;
    // No other program can change the file between reading and deletion.
    const HoldResult held = HoldNoteFile(services_.saving.store.Files(), plainPath);
    if (!held.file) {
        if (held.error == FileError::InUse) return OpenOutcome::InUse;
        return held.error == FileError::TooLarge ? OpenOutcome::TooLarge : OpenOutcome::Failed;
    }
    const FileVersion source{plainPath, ContentHash(held.file->Bytes())};
    // While the saved notes are loaded, no file occurs twice.
    if (OpenNote* open = program_.loadingNotes ? nullptr : FindOpen(plainPath, source)) {
        if (mode == OpenMode::AtStart) {
            open->Popup();
        } else {
            open->PopupByUser();
            open->Activate();
        }
        return OpenOutcome::Done;
    }
    NoteFile content = ParseNoteFile(held.file->Bytes(), services_.dates.locale);
    if (content.text.find(u'\0') != std::u16string::npos) return OpenOutcome::Failed;  // not a text
    if (!content.hasTags && content.text.empty()) content.text = NameWithoutExtension(FileNameOfPath(plainPath));

    OpenNote* note = CreateNote(content, plainPath, mode);
    if (note == nullptr) {
        ReportUnopened(plainPath);
        return OpenOutcome::Failed;
    }
    if (IsInNotesFolder(plainPath, program_.notesFolder, services_.dates.locale)) {
        note->Saver().SetStorageCopy(source);
    } else {
        MoveIntoNotesFolder(*note, content, *held.file, plainPath);
    }
    return OpenOutcome::Done;
}

OpenNote* NoteOpening::CreateNote(const NoteFile& content, std::u16string_view openedPath, OpenMode mode) {
    if (!CanOpenAnotherNote()) return nullptr;
    OpenNote* added =
        program_.openNotes.Add(services_, NewNoteIdentifier(program_.openNotes, random_), content.position);
    if (added == nullptr) return nullptr;
    OpenNote& note = *added;

    if (IsNew(content)) {
        FillNewNote(note);
    } else if (!note.SetText(content.text)) {
        note.DestroyNote();  // if kept, it would be saved without the rest of its text
        return nullptr;
    }
    // Whether the tags have put the note on the screen, in its colors, or determined that it stays hidden.
    const bool settled = content.hasTags && note.SetupNoteFromTags(content, openedPath);
    if (!content.hasTags && program_.settings.randomNoteColor) {
        const ColorScheme& scheme = RandomScheme(random_);
        note.SetOwnColors(scheme.note, scheme.border, scheme.text);
    } else if (!settled) {
        note.UpdateColors();
    }
    note.SetNoteEffects();
    const bool atStart = program_.startingUp || mode == OpenMode::AtStart;
    if (program_.settings.autoPinNewNotes && !atStart) note.SetPinned(true);
    if (!settled) note.Popup();
    return &note;
}

void NoteOpening::CreateNewNote() {
    NoteFile newNote;
    newNote.text = kNewNoteContent;
    if (OpenNote* note = CreateNote(newNote)) note->Activate();
}

/// The open note whose storage copy is that file, or which was opened from it before. Two notes on one file would
/// overwrite each other's text, and closing one would delete the file of the other.
OpenNote* NoteOpening::FindOpen(std::u16string_view path, const FileVersion& source) {
    const NoteStore& store = services_.saving.store;
    const std::u16string wanted = store.Comparable(path);
    OpenNote* found = nullptr;
    program_.openNotes.ForEach([&](OpenNote& note) {
        const std::u16string& stored = note.Data().StoragePath;
        const FileVersion& opened = note.Saver().Source();
        const bool storedThere = !stored.empty() && store.Comparable(stored) == wanted;
        const bool openedThence =
            !opened.path.empty() && opened.hash == source.hash && store.Comparable(opened.path) == wanted;
        if (storedThere || openedThence) found = &note;
    });
    return found;
}

/// Intended: a file that contains only "(new)" or "/new" also creates an empty note.
bool NoteOpening::IsNew(const NoteFile& content) {
    if (content.hasTags) return false;
    const std::u16string lower = services_.dates.locale.ToLower(content.text);
    return lower == kNewNoteContent || lower == u"/new";
}

void NoteOpening::FillNewNote(OpenNote& note) const {
    if (program_.settings.timestampNewNotes) note.Perform(NoteAction::AddTimestamp);
}

void NoteOpening::MoveIntoNotesFolder(OpenNote& note, const NoteFile& content, HeldFile& source,
                                      std::u16string_view path) {
    // A file that the program named for the note is not the note's own file: the note keeps none.
    note.SetFileName(content.kind == FileKind::ProgramNamed ? FileNameOf(content, path, {}, services_.dates.locale)
                                                            : std::u16string(path));
    const FileVersion from{std::u16string(path), ContentHash(source.Bytes())};
    note.Saver().ChooseStoragePath();
    std::u16string record;
    // Without all of its text, the note is no reason for the next start to delete the source after a crash.
    if (!content.keepsFile && note.Text() == content.text) {
        const std::optional<std::string> bytes = services_.saving.store.FormatStorageCopy(note.Content());
        const FileVersion to{note.Data().StoragePath, bytes ? ContentHash(*bytes) : 0};
        record = services_.saving.store.Journal().Begin({PendingStep::Kind::Move, {}, from, to});
    }
    note.MarkChanged();
    const bool stored = note.PersistNote() && IsStoredWhole(note, content);
    const bool gone = stored && !content.keepsFile && source.Delete() == FileError::None;
    if (!gone) note.Saver().SetSource(from);
    services_.saving.store.Journal().End(record);
}

/// True if the storage copy yields the text that was read, except for an empty first line.
bool NoteOpening::IsStoredWhole(const OpenNote& note, const NoteFile& content) {
    if (note.Text() != content.text) return false;
    const std::optional<std::string> bytes = services_.saving.store.Files().Read(note.Data().StoragePath);
    const std::u16string_view text = content.text;
    return bytes &&
           ParseNoteFile(*bytes, services_.dates.locale).text == text.substr(text.substr(0, 2) == u"\r\n" ? 2 : 0);
}

void NoteOpening::ReportUnopened(std::u16string_view path) const {
    if (program_.openNotes.Count() >= kMaxOpenNotes) return;
    services_.hints.ShowBalloon(
        {kUnopenedTitle, kUnopenedText + std::u16string(FileNameOfPath(path)), BalloonIcon::Warning});
}

}  // namespace quillo
