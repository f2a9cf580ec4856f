#include "note_maker.h"

#include <algorithm>

#include "iso_time.h"
#include "note_library.h"
#include "util/ignore.h"
#include "util/unicode.h"
#include "words.h"

namespace quillo::qln {

std::size_t CountNotes(const std::string& folder) {
    const auto files = ListFiles(folder).value_or(std::vector<FolderEntry>());
    return static_cast<std::size_t>(
        std::count_if(files.begin(), files.end(), [](const FolderEntry& file) { return HasNoteEnding(file.name); }));
}

bool NoteMaker::CanMakeNote() {
    if (CountNotes(session_.place.notesFolder) < kMostNotes) return true;
    Complain(session_.Terminal(), "there are 50 notes already, which is the most that Quillo opens");
    return false;
}

std::string NoteMaker::Store(std::string_view bytes, const std::string& name) {
    const std::string& folder = session_.place.notesFolder;
    std::string path = name.empty() ? std::string() : JoinPaths(folder, name);
    if (path.empty() || IsFile(path)) path = JoinPaths(folder, session_.host.NewGuid() + ".qln");
    // The program treats every *.qln in the folder as a note; this file is not one before it is complete.
    const std::string part = path + "-part";
    if (WriteNewFile(part, bytes)) {
        if (MoveToFreeName(part, path)) {
            made_.push_back(path);
            return path;
        }
        Ignore(RemoveFile(part), "what is left of it is no note");
    }
    Complain(session_.Terminal(), "the note cannot be written to " + HarmlessName(folder));
    return {};
}

std::string NoteMaker::Store(const NoteFile& file) {
    const auto bytes = FormatNoteFile(file, *session_.place.locale);
    if (bytes) return Store(*bytes);
    Complain(session_.Terminal(), "the system cannot convert the note's text");
    return {};
}

void NoteMaker::Announce() {
    Channel& channel = *session_.place.channel;
    if (made_.empty()) return;
    bool shown = channel.Answers();
    for (const std::string& path : made_) {
        if (!shown) break;
        const auto named = channel.PathForProgram(path);
        shown = named && channel.Send(*named);
    }
    if (shown) return;
    if (session_.options.start && !channel.Answers()) {
        if (channel.Start()) return;
        Complain(session_.Terminal(), "Quillo cannot be started");
    }
    Complain(session_.Terminal(), "shown at Quillo's next start");
}

std::optional<std::u16string> TextForNote(std::string_view bytes, std::string& error) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.substr(0, kMark.size()) == kMark) bytes.remove_prefix(kMark.size());
    if (bytes.find('\0') != std::string_view::npos) {
        error = "it holds null characters, and so is no text";
        return std::nullopt;
    }
    const auto text = DecodeUtf8(bytes, LoneSurrogates::Refuse);
    if (!text) {
        error = "it is not well-formed UTF-8";
        return std::nullopt;
    }
    std::u16string whole = WithLineBreaks(*text);
    if (whole.size() <= kMostNoteCharacters) return whole;
    error = "it is longer than a note can be (4,000,000 characters)";
    return std::nullopt;
}

std::string DateForName(DaySerial now) {
    std::string date = FormatIsoTime(now, '-');
    date.erase(std::remove(date.begin(), date.end(), ':'), date.end());
    return date;
}

std::string MakeDatedFolder(Console& console, const std::string& parent, const std::string& name) {
    constexpr int kMostInOneSecond = 100;
    for (int number = 1; number <= kMostInOneSecond; ++number) {
        std::string path = JoinPaths(parent, number == 1 ? name : name + "-" + std::to_string(number));
        if (MakeFolder(path)) return path;
        if (!IsFolder(path)) break;
    }
    Complain(console, "no folder can be made in " + HarmlessName(parent));
    return {};
}

bool CopyWhole(Console& console, const std::string& from, const std::string& to) {
    const auto bytes = ReadBytes(from);
    const auto facts = FactsOf(from);
    if (bytes && facts && WriteNewFile(to, *bytes) && ReadBytes(to) == bytes) {
        Ignore(SetModified(to, facts->modified), "the copy is whole; only its date is today's");
        return true;
    }
    Complain(console, "cannot be copied: " + HarmlessName(from));
    return false;
}

}  // namespace quillo::qln
