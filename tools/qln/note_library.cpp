#include "note_library.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <tuple>

#include "notes/unicode_element.h"
#include "util/content_hash.h"
#include "util/text.h"

namespace quillo::qln {
namespace {

constexpr std::size_t kIdDigits = 8;

bool IsHexDigit(char c) {
    const char lower = AsciiLower(c);
    return (c >= '0' && c <= '9') || (lower >= 'a' && lower <= 'f');
}

bool AddFolder(const std::string& folder, bool closed, std::vector<NoteEntry>& notes) {
    std::optional<std::vector<FolderEntry>> files = ListFiles(folder);
    if (!files) return false;
    const auto first = static_cast<std::ptrdiff_t>(notes.size());
    for (FolderEntry& file : *files) {
        if (!HasNoteEnding(file.name)) continue;
        NoteEntry note;
        note.path = JoinPaths(folder, file.name);
        note.name = std::move(file.name);
        note.size = file.size;
        note.modified = file.modified;
        note.closed = closed;
        notes.push_back(std::move(note));
    }
    std::sort(notes.begin() + first, notes.end(), [](const NoteEntry& a, const NoteEntry& b) {
        return std::tie(a.modified, a.name) < std::tie(b.modified, b.name);
    });
    return true;
}

}  // namespace

std::string IdOfName(std::string_view name) {
    std::string id;
    for (const char c : name.substr(!name.empty() && name.front() == '{' ? 1 : 0, kIdDigits)) {
        if (IsHexDigit(c)) id += AsciiLower(c);
    }
    if (id.size() == kIdDigits) return id;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(ContentHash(name)));
    return std::string(text.data(), kIdDigits);
}

std::optional<std::vector<NoteEntry>> ListNotes(const Surroundings& place, bool closed) {
    std::vector<NoteEntry> notes;
    if (!AddFolder(place.notesFolder, false, notes)) return std::nullopt;
    // A missing folder for closed notes has none.
    if (closed && !place.closedFolder.empty()) AddFolder(place.closedFolder, true, notes);
    int number = 0;
    for (NoteEntry& note : notes) {
        note.number = ++number;
        note.id = IdOfName(note.name);
    }
    return notes;
}

std::optional<NoteEntry> EntryOfFile(const std::string& path) {
    const std::optional<FolderEntry> facts = FactsOf(path);
    if (!facts) return std::nullopt;
    NoteEntry note;
    note.id = IdOfName(facts->name);
    note.path = path;
    note.name = facts->name;
    note.size = facts->size;
    note.modified = facts->modified;
    return note;
}

NoteFile ReadNote(std::string_view bytes, LocaleText& locale) {
    NoteFile file = ParseNoteFile(bytes, locale);
    if (!file.hasTags) return file;
    if (const auto whole = ReadUnicodeElement(bytes)) {
        file.text = whole->text;
    } else if (bytes.substr(0, 2) == "\r\n") {
        // The reader removes one line break from the start: an additional one protects the text's own.
        std::string longer = "\r\n";
        file.text = ParseNoteFile(longer.append(bytes), locale).text;
    }
    return file;
}

std::vector<StoredNote> LoadNotes(const std::vector<NoteEntry>& entries, LocaleText& locale,
                                  std::vector<std::string>& unread) {
    std::vector<StoredNote> notes;
    std::string bytes;
    for (const NoteEntry& entry : entries) {
        if (ReadInto(entry.path, bytes)) {
            notes.push_back({entry, ReadNote(bytes, locale)});
        } else if (IsFile(entry.path)) {  // a missing file was closed meanwhile
            unread.push_back(entry.path);
        }
    }
    return notes;
}

}  // namespace quillo::qln
