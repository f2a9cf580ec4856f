#include <algorithm>

#include "commands.h"
#include "note_library.h"
#include "note_maker.h"
#include "selection.h"
#include "words.h"

namespace quillo::qln {
namespace {

constexpr const char* kSettingsName = "quillo-settings.txt";

struct BackedUp {
    std::string name;
    std::string path;
    std::string bytes;
};

/// The notes of a backup, in the order of their names; nothing after an error message.
std::optional<std::vector<BackedUp>> ReadBackup(const Session& session) {
    const std::string& folder = session.options.folder;
    const auto files = ListFiles(folder);
    std::vector<BackedUp> notes;
    for (const FolderEntry& file : files.value_or(std::vector<FolderEntry>())) {
        if (!HasNoteEnding(file.name)) continue;
        BackedUp note{file.name, JoinPaths(folder, file.name), {}};
        if (!ReadInto(note.path, note.bytes)) {
            Complain(session.Terminal(), "cannot be read: " + HarmlessName(note.path));
            return std::nullopt;
        }
        notes.push_back(std::move(note));
    }
    if (notes.empty()) {
        Complain(session.Terminal(), "there are no notes in " + HarmlessName(folder));
        return std::nullopt;
    }
    std::sort(notes.begin(), notes.end(), [](const BackedUp& a, const BackedUp& b) { return a.name < b.name; });
    return notes;
}

/// Whether the notes folder has a note with exactly these bytes.
bool IsThere(const std::vector<std::string>& present, const BackedUp& note) {
    return std::find(present.begin(), present.end(), note.bytes) != present.end();
}

}  // namespace

int Backup(const Session& session) {
    const auto files = ListFiles(session.place.notesFolder);
    if (!files) {
        Complain(session.Terminal(), "the notes folder cannot be read: " + HarmlessName(session.place.notesFolder));
        return kFailed;
    }
    if (!IsFolder(session.options.folder) && !MakeFolder(session.options.folder)) {
        Complain(session.Terminal(), "no folder can be made: " + HarmlessName(session.options.folder));
        return kFailed;
    }
    const std::string name = "quillo-notes-" + DateForName(session.host.Time().Now());
    const std::string folder = MakeDatedFolder(session.Terminal(), session.options.folder, name);
    if (folder.empty()) return kFailed;
    int code = kDone;
    for (const FolderEntry& file : *files) {
        const std::string from = JoinPaths(session.place.notesFolder, file.name);
        // A missing file belonged to a note that was closed meanwhile.
        if (IsFile(from) && !CopyWhole(session.Terminal(), from, JoinPaths(folder, file.name))) code = kFailed;
    }
    if (!WriteNewFile(JoinPaths(folder, kSettingsName), session.place.settingsText)) {
        Complain(session.Terminal(), "the settings cannot be written to " + HarmlessName(folder));
        code = kFailed;
    }
    session.Terminal().Out(folder + "\n");
    return code;
}

int Restore(const Session& session) {
    const auto backup = ReadBackup(session);
    if (!backup) return kFailed;
    const auto entries = NotesOrComplaint(session, false);
    if (!entries) return kFailed;
    std::vector<std::string> present;
    for (const NoteEntry& entry : *entries) present.push_back(ReadBytes(entry.path).value_or(std::string()));

    Console& console = session.Terminal();
    NoteMaker maker(session);
    int code = kDone;
    for (const BackedUp& note : *backup) {
        if (IsThere(present, note)) continue;
        const bool differs = IsFile(JoinPaths(session.place.notesFolder, note.name));
        if (differs && !session.options.older) {
            console.Error("differs, and stays as it is (--older brings the older one too): " + HarmlessName(note.name) +
                          "\n");
            continue;
        }
        if (CountNotes(session.place.notesFolder) >= kMostNotes) {
            console.Error("over the limit of 50 notes, and stays in the backup: " + HarmlessName(note.path) + "\n");
            code = kFailed;
            continue;
        }
        const std::string path = maker.Store(note.bytes, note.name);
        if (path.empty()) {
            code = kFailed;
            continue;
        }
        console.Out(path + "\n");
    }
    maker.Announce();
    return code;
}

}  // namespace quillo::qln
