#include "notes/note_store.h"

#include "app/note_names.h"
#include "ports/file_store.h"
#include "ports/shell.h"
#include "util/ignore.h"

namespace quillo {

std::u16string NoteStore::SaveNote(const NoteFile& content, const SaveTarget& target) {
    std::u16string path = target.fileName;
    bool programNamed = target.isTempName;
    if (path.empty() || (!target.overwrite && files_.FileExists(path))) {
        path = names_.SuggestNoteFileName(content.text);
        programNamed = true;
    }
    const FileKind named = programNamed ? FileKind::ProgramNamed : FileKind::OwnFile;
    NoteFile file = content;
    file.kind = target.noDelete ? FileKind::StorageCopy : named;
    file.path = path;
    const std::optional<std::string> bytes = FormatNoteFile(file, locale_);
    if (!bytes) return {};  // an empty file would take the place of a whole one
    if (target.durable ? files_.Replace(path, *bytes) : files_.Write(path, *bytes)) return path;

    if (target.isTempName) return {};
    // Once more, under a name made from the text.
    return SaveNote(content, {u"", true, target.noDelete, false, target.durable});
}

std::u16string NoteStore::NewStoragePath(std::u16string_view notesFolder) {
    return std::u16string(notesFolder) + u"\\" + shell_.NewUniqueIdentifier() + u".qln";
}

void NoteStore::DeleteStorageCopy(std::u16string_view path) {
    if (!path.empty()) Ignore(files_.Delete(path), "the note is closed all the same");
}

std::u16string NoteStore::SaveTemporaryFile(const NoteFile& content) {
    const std::u16string path = names_.MakeTemporaryFileName();
    if (path.empty()) return {};
    SaveTarget target;
    target.fileName = path;
    target.isTempName = true;
    target.noDelete = true;
    target.overwrite = true;
    std::u16string saved = SaveNote(content, target);
    if (saved.empty()) DeleteTemporaryFile(path);  // what was written of it
    return saved;
}

void NoteStore::DeleteTemporaryFile(std::u16string_view path) {
    Ignore(files_.Delete(path), "the system empties its temporary folder in time");
}

void NoteStore::Recycle(std::u16string_view path) {
    if (!path.empty()) Ignore(shell_.Recycle(path), "the file then stays where it is");
}

}  // namespace quillo
