#include "app/recovery.h"

#include <algorithm>

#include "app/base/note_names.h"
#include "notes/unicode_element.h"
#include "util/content_hash.h"
#include "util/ignore.h"
#include "util/path_text.h"
#include "util/text.h"

namespace quillo {
namespace {

/// A storage copy that was replaced by a newer one is kept with this ending until the next start.
constexpr std::u16string_view kReplacedExtension = u".old";
constexpr std::string_view kEndOfStorageCopy = "<nodelete></nodelete></quillo>";

bool IsWholeStorageCopy(std::string_view bytes) {
    return bytes.ends_with(kEndOfStorageCopy) || EndsWithUnicodeElement(bytes);
}

/// The storage copy for which a file was prepared ("a.qln.new", "a.qln.2.new"); "" for any other file.
std::u16string_view CopyOfPrepared(std::u16string_view path) {
    path.remove_suffix(kPreparedExtension.size());
    const std::size_t digits = path.find_last_not_of(u"0123456789");
    if (digits + 1 < path.size() && digits != std::u16string_view::npos && path[digits] == u'.') {
        path = path.substr(0, digits);
    }
    return EndsWithIgnoringAsciiCase(path, kNoteExtension) ? path : std::u16string_view();
}

}  // namespace

Recovery::Result Recovery::Run() {
    Result result;
    RemoveReplacedCopies();
    for (const SaveJournal::Record& record : store_.Journal().Unfinished()) Finish(record, result);
    AdoptPreparedCopies({});
    return result;
}

void Recovery::Finish(const SaveJournal::Record& record, Result& result) {
    const PendingStep& step = record.step;
    if (!step.prepared.empty()) {
        Ignore(files_.Delete(step.prepared), "it was moved to its place, or only occupies space");
    }
    switch (step.kind) {
        case PendingStep::Kind::Write:
            break;
        case PendingStep::Kind::Move:
            // The file prepared for the note's new place may be complete.
            if (!step.to.path.empty()) AdoptPreparedCopies(step.to.path);
            return store_.FinishMove(record);
        case PendingStep::Kind::Recycle:
            if (!FinishRecycling(step)) return store_.Postpone(record);
            break;
        case PendingStep::Kind::Rescue:
            if (!FinishRescue(step, result)) return;
            break;
    }
    store_.Journal().End(record.path);
}

bool Recovery::FinishRecycling(const PendingStep& step) {
    const FileState from = store_.StateOf(step.from);
    const FileState to = store_.StateOf(step.to);
    // If the file is missing already, it may be in the bin or permanently deleted: the note then stays.
    if (from == FileState::Different || to == FileState::Different) return true;
    if (from == FileState::Unreadable || to == FileState::Unreadable) return false;
    if (store_.Recycle(step.to.path) != RecycleResult::Gone) store_.DeleteStorageCopy(step.from, {});
    return true;
}

bool Recovery::FinishRescue(const PendingStep& step, Result& result) {
    const FileState rescued = store_.StateOf(step.to);
    if (rescued == FileState::Different) return true;  // the user has opened or changed it since
    const std::optional<std::string> copy = files_.Read(step.from.path);
    // Opened beside a copy that is only locked for a moment, the text would be a second note.
    if (rescued == FileState::Unreadable || (!copy && files_.FileExists(step.from.path))) return false;
    const NoteFile note = ParseNoteFile(files_.Read(step.to.path).value_or(std::string()), locale_);
    const std::optional<std::string> bytes = store_.FormatStorageCopy(note);
    const bool placed = bytes && copy == bytes;
    if (!placed && (copy ? ContentHash(*copy) : 0) != step.from.hash) {
        result.files.push_back(step.to.path);  // both are texts of the user
        return true;
    }
    if (!placed && store_.SaveStorageCopy(note, step.from.path).error != FileError::None) {
        result.files.push_back(step.to.path);
        return false;
    }
    Ignore(files_.Delete(step.to.path), "a file that stays is another copy of the note");
    ++result.restored;
    return true;
}

void Recovery::RemoveReplacedCopies() {
    for (const FileEntry& file : files_.List(notesFolder_, kReplacedExtension)) {
        const std::u16string_view path = file.path;
        if (EndsWithIgnoringAsciiCase(path.substr(0, path.size() - kReplacedExtension.size()), kNoteExtension)) {
            Ignore(files_.Delete(path), "the next start tries again");
        }
    }
}

void Recovery::AdoptPreparedCopies(std::u16string_view onlyCopy) {
    std::vector<FileEntry> prepared = files_.List(notesFolder_, kPreparedExtension);
    std::sort(prepared.begin(), prepared.end(),
              [](const FileEntry& a, const FileEntry& b) { return a.modified < b.modified; });
    for (const FileEntry& file : prepared) {
        const std::u16string copy(CopyOfPrepared(file.path));
        if (!copy.empty() && (onlyCopy.empty() || copy == onlyCopy)) Adopt(file, copy);
    }
}

void Recovery::Adopt(const FileEntry& prepared, const std::u16string& copy) {
    const std::optional<std::string> bytes = files_.Read(prepared.path);
    if (!bytes) return;
    const std::optional<FileEntry> existing = files_.Find(copy);
    const bool newer = !existing || existing->modified < prepared.modified;
    if (!newer || !IsWholeStorageCopy(*bytes)) {
        Ignore(files_.Delete(prepared.path), "the next start tries again");
        return;
    }
    if (existing && files_.MoveOver(copy, copy + std::u16string(kReplacedExtension)) != FileError::None) return;
    Ignore(files_.Rename(prepared.path, copy), "the next start tries again");
}

}  // namespace quillo
