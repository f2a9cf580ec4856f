#include "commands.h"
#include "export_notes.h"
#include "json_notes.h"
#include "selection.h"
#include "util/unicode.h"
#include "words.h"

namespace quillo::qln {
namespace {

struct Format {
    const char* name;
    const char* ending;
    std::string (*write)(const std::vector<StoredNote>& notes, const Settings& settings);
};

constexpr Format kFormats[] = {
    {"text", ".txt", [](const std::vector<StoredNote>& notes, const Settings&) { return NotesAsText(notes); }},
    {"markdown", ".md", [](const std::vector<StoredNote>& notes, const Settings&) { return NotesAsMarkdown(notes); }},
    {"html", ".html", NotesAsHtml},
    {"json", ".json", [](const std::vector<StoredNote>& notes, const Settings&) { return NotesAsJson(notes); }},
    {"ics", ".ics", [](const std::vector<StoredNote>& notes, const Settings&) { return RemindersAsCalendar(notes); }},
};

bool WriteOrComplain(Console& console, const std::string& path, const std::string& content) {
    if (OverwriteFile(path, content)) return true;
    Complain(console, "cannot be written: " + HarmlessName(path));
    return false;
}

/// One file for each note, named after its id and its state.
int ExportToFolder(const Session& session, const std::vector<StoredNote>& notes, const Format& format) {
    const bool plainText = std::string_view(format.name) == "text";
    for (const StoredNote& note : notes) {
        const NoteFile& file = note.file;
        if (std::string_view(format.name) == "ics" && !(file.reminder && file.reminder->when)) continue;
        const std::string state(note.entry.closed ? "closed"
                                                  : StateName(file.appearance ? file.appearance->state : std::nullopt));
        const std::string name = note.entry.id + "-" + state + format.ending;
        const std::string content = plainText ? NoteAsText(note) : format.write({note}, session.place.settings);
        if (!WriteOrComplain(session.Terminal(), JoinPaths(session.options.output, name), content)) return kFailed;
    }
    return kDone;
}

}  // namespace

int Export(const Session& session) {
    const auto entries = NotesOrComplaint(session, session.options.closed);
    if (!entries) return kFailed;
    std::vector<std::string> unread;
    const std::vector<StoredNote> notes = LoadNotes(*entries, *session.place.locale, unread);
    const Format* format = nullptr;
    for (const Format& known : kFormats) {
        if (session.options.format == known.name) format = &known;
    }
    if (format == nullptr) return kWrongUse;
    int code = kDone;
    if (IsFolder(session.options.output)) {
        code = ExportToFolder(session, notes, *format);
    } else if (session.options.output.empty()) {
        std::string content = format->write(notes, session.place.settings);
        if (session.Terminal().IsTerminal() && session.options.format != "json") {
            const auto text = DecodeUtf8(content, LoneSurrogates::Accept);
            content = ToUtf8(Harmless(WithLineFeeds(text.value_or(std::u16string()))));
        }
        session.Terminal().Out(content);
    } else if (!WriteOrComplain(session.Terminal(), session.options.output,
                                format->write(notes, session.place.settings))) {
        code = kFailed;
    }
    return ReportUnread(session.Terminal(), unread, code);
}

}  // namespace quillo::qln
