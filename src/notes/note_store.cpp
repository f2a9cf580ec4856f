#include "notes/note_store.h"

#include <algorithm>
#include <utility>

#include "app/base/note_names.h"
#include "ports/locale_text.h"
#include "ports/shell.h"
#include "util/content_hash.h"
#include "util/ignore.h"
#include "util/numbers.h"
#include "util/path_text.h"

namespace quillo {
namespace {

/// The number of attempts to find a name, in case another program takes the chosen one before it is used.
constexpr int kMostNames = 20;

/// The names of a storage copy's new content while it is being written: "a.qln.new", "a.qln.2.new", ...
std::u16string PreparedCopyName(std::u16string_view path, int number) {
    std::u16string name(path);
    if (number > 1) name += u"." + FormatInteger(number);
    return name.append(kPreparedExtension);
}

SavedNote Failure(FileError error) {
    SavedNote saved;
    saved.error = error;
    return saved;
}

}  // namespace

SavedNote NoteStore::SaveNote(const NoteFile& content, const SaveTarget& target, const LeavingNote& leaving) {
    NoteFile file = content;
    std::u16string path = target.fileName;
    bool programNamed = target.isTempName;
    SavedNote saved;
    for (int attempt = 0; attempt < kMostNames; ++attempt) {
        if (path.empty() || (!target.overwrite && files_.FileExists(path))) {
            path = names_.SuggestNoteFileName(content.text);
            programNamed = true;
        }
        const FileKind named = programNamed ? FileKind::ProgramNamed : FileKind::OwnFile;
        file.kind = target.noDelete ? FileKind::StorageCopy : named;
        file.path = path;
        const std::optional<std::string> bytes = FormatNoteFile(file, locale_);
        if (!bytes || path.empty()) return Failure(FileError::Failed);
        saved = target.overwrite ? WriteOver(path, *bytes) : WriteNew(path, *bytes, leaving);
        saved.isTempName = programNamed;
        if (saved.error != FileError::NameTaken) break;
    }
    if (saved.error == FileError::None || target.isTempName) return saved;
    // Another attempt, under a name made from the text.
    return SaveNote(content, {u"", true, target.noDelete, false}, leaving);
}

SavedNote NoteStore::SaveInFolder(const NoteFile& content, std::u16string_view folder) {
    NoteFile file = content;
    file.kind = FileKind::ProgramNamed;
    for (int attempt = 0; attempt < kMostNames; ++attempt) {
        file.path = names_.SuggestNoteFileName(content.text, folder);
        const std::optional<std::string> bytes = FormatNoteFile(file, locale_);
        if (!bytes || file.path.empty()) break;
        SavedNote saved = WriteNew(file.path, *bytes, {});
        if (saved.error != FileError::NameTaken) return saved;
    }
    return Failure(FileError::Failed);
}

SavedNote NoteStore::Rescue(const NoteFile& content) {
    SavedNote saved = SaveNote(content, {u"", true, false, false});
    for (const std::u16string& folder :
         {shell_.FolderPath(SpecialFolder::DesktopDirectory), files_.TemporaryFolder()}) {
        if (saved.path.empty() && !folder.empty()) saved = SaveInFolder(content, folder);
    }
    return saved;
}

SavedNote NoteStore::WriteAgain(const NoteFile& content, const SavedNote& gone) {
    SavedNote saved = SaveNote(content, {gone.path, gone.isTempName, false, false});
    return saved.path.empty() ? Rescue(content) : saved;
}

RecycleResult NoteStore::Recycle(std::u16string_view path) {
    return shell_.Recycle(path);
}

std::u16string NoteStore::PreparedName(const std::u16string& path) {
    return path + u"." + shell_.NewUniqueIdentifier() + std::u16string(kPreparedExtension);
}

SavedNote NoteStore::WriteOver(const std::u16string& path, std::string_view bytes) {
    const std::u16string prepared = PreparedName(path);
    const std::u16string record = journal_.Begin({PendingStep::Kind::Write, prepared, {}, {}});
    FileError error = files_.Create(prepared, bytes);
    if (error == FileError::None) {
        error = files_.MoveOver(prepared, path);
        if (error != FileError::None) Ignore(files_.Delete(prepared), "the next start removes it");
    }
    journal_.End(record);
    return error == FileError::None ? SavedNote{path, error, ContentHash(bytes), {}} : Failure(error);
}

SavedNote NoteStore::WriteNew(const std::u16string& path, std::string_view bytes, const LeavingNote& leaving) {
    const std::u16string prepared = PreparedName(path);
    const bool leaves = !leaving.storageCopy.path.empty();
    const std::uint64_t hash = ContentHash(bytes);
    const PendingStep step{leaves ? leaving.kind : PendingStep::Kind::Write, prepared, leaving.storageCopy,
                           leaves ? FileVersion{path, hash} : FileVersion{}};
    const std::u16string record = journal_.Begin(step);
    FileError error = files_.Create(prepared, bytes);
    if (error == FileError::None) {
        error = files_.Rename(prepared, path);
        if (error != FileError::None) Ignore(files_.Delete(prepared), "the next start removes it");
    }
    if (error == FileError::None && leaves) return SavedNote{path, error, hash, record};
    journal_.End(record);
    return error == FileError::None ? SavedNote{path, error, hash, {}} : Failure(error);
}

std::optional<std::string> NoteStore::FormatStorageCopy(const NoteFile& content) {
    NoteFile file = content;
    file.kind = FileKind::StorageCopy;
    file.path.clear();
    return FormatNoteFile(file, locale_);
}

SavedNote NoteStore::SaveStorageCopy(const NoteFile& content, std::u16string_view path) {
    const std::optional<std::string> bytes = path.empty() ? std::nullopt : FormatStorageCopy(content);
    if (!bytes) return Failure(FileError::Failed);
    FileError error = ReplaceStorageCopy(path, *bytes);
    if (error == FileError::FolderMissing) {
        files_.CreateFolder(FolderOfPath(notesFolder_));
        if (files_.CreateFolder(notesFolder_)) error = ReplaceStorageCopy(path, *bytes);
    }
    if (error == FileError::DiskFull && reserve_.GiveUp()) error = ReplaceStorageCopy(path, *bytes);
    if (error != FileError::None) return Failure(error);
    return SavedNote{std::u16string(path), error, ContentHash(*bytes), {}};
}

FileError NoteStore::ReplaceStorageCopy(std::u16string_view path, std::string_view bytes) {
    for (int number = 1; number <= kMostNames; ++number) {
        const std::u16string prepared = PreparedCopyName(path, number);
        FileError error = files_.Create(prepared, bytes);
        if (error == FileError::NameTaken) continue;
        if (error != FileError::None) return error;
        error = files_.MoveOver(prepared, path);
        if (error != FileError::None) Ignore(files_.Delete(prepared), "the next start looks at it");
        return error;
    }
    return FileError::NameTaken;
}

std::u16string NoteStore::NewStoragePath() {
    const std::u16string identifier = shell_.NewUniqueIdentifier();
    return identifier.empty() ? identifier : StoragePathOf(identifier);
}

std::u16string NoteStore::StoragePathOf(std::u16string_view identifier) const {
    return JoinPath(notesFolder_, identifier).append(kNoteExtension);
}

void NoteStore::DeleteStorageCopy(const FileVersion& copy, std::u16string record) {
    if (copy.path.empty()) return journal_.End(record);
    // Before the copy itself: otherwise the next start would move the prepared file to the copy's place.
    for (int number = 1; number <= kMostNames; ++number) {
        const std::u16string prepared = PreparedCopyName(copy.path, number);
        if (!files_.FileExists(prepared)) continue;
        Ignore(files_.Delete(prepared), "the copy is deleted all the same");
    }
    const FileError error = files_.Delete(copy.path);
    if (error == FileError::None || error == FileError::NotFound || error == FileError::FolderMissing) {
        return journal_.End(record);
    }
    // Its own record depends on no other file, which the user may change or the Recycle Bin may take.
    const PendingStep step{PendingStep::Kind::Move, {}, copy, {}};
    std::u16string own = journal_.Begin(step);
    if (!own.empty()) journal_.End(std::exchange(record, std::move(own)));
    Postpone({std::move(record), step});
}

void NoteStore::FinishMove(const SaveJournal::Record& record) {
    const PendingStep& step = record.step;
    const FileState from = StateOf(step.from);
    const FileState to = step.to.path.empty() ? FileState::Same : StateOf(step.to);
    if (from == FileState::Different || to == FileState::Different) return journal_.End(record.path);
    if (from == FileState::Unreadable || to == FileState::Unreadable) return Postpone(record);
    if (FolderOfPath(step.from.path) == notesFolder_) return DeleteStorageCopy(step.from, record.path);
    if (files_.Delete(step.from.path) == FileError::InUse) return Postpone(record);
    journal_.End(record.path);
}

void NoteStore::RetryDeletions() {
    for (SaveJournal::Record& record : std::exchange(postponed_, {})) {
        if (record.step.kind == PendingStep::Kind::Move) {
            FinishMove(record);
        } else {
            Postpone(std::move(record));
        }
    }
}

bool NoteStore::IsBeingDeleted(std::u16string_view path) const {
    return std::any_of(postponed_.begin(), postponed_.end(), [&](const SaveJournal::Record& record) {
        return Comparable(record.step.from.path) == Comparable(path);
    });
}

void NoteStore::KeepStorageCopy(std::u16string_view path) {
    std::erase_if(postponed_, [&](const SaveJournal::Record& record) {
        const bool kept = Comparable(record.step.from.path) == Comparable(path);
        if (kept) journal_.End(record.path);
        return kept;
    });
}

FileState NoteStore::StateOf(const FileVersion& file) const {
    const std::optional<std::string> bytes = files_.Read(file.path);
    if (!bytes) return files_.FileExists(file.path) ? FileState::Unreadable : FileState::Different;
    return ContentHash(*bytes) == file.hash ? FileState::Same : FileState::Different;
}

std::u16string NoteStore::SaveTemporaryFile(const NoteFile& content) {
    const std::u16string path = names_.MakeTemporaryFileName();
    if (path.empty()) return {};
    return SaveNote(content, {path, true, true, true}).path;
}

void NoteStore::DeleteTemporaryFile(std::u16string_view path) {
    Ignore(files_.Delete(path), "the system empties its temporary folder in time");
}

std::u16string NoteStore::Comparable(std::u16string_view path) const {
    return path.empty() ? std::u16string() : locale_.ToLower(shell_.FullLongPath(path));
}

}  // namespace quillo
