#include <algorithm>

#include "commands.h"
#include "json_notes.h"
#include "search.h"
#include "selection.h"
#include "util/unicode.h"
#include "words.h"

namespace quillo::qln {
namespace {

constexpr std::string_view kMarkOn = "\x1b[1;31m";
constexpr std::string_view kMarkOff = "\x1b[0m";
constexpr std::size_t kLongestLine = 200;

/// A part of a line for the console, made harmless to terminals.
std::string Plain(std::u16string_view part) {
    std::u16string text = Harmless(part);
    std::replace(text.begin(), text.end(), u'\t', u' ');
    return ToUtf8(text);
}

std::string MarkedLine(const Hit& hit, bool terminal) {
    // A long line is shown around its first match.
    const std::u16string_view line = hit.line;
    const std::size_t first = hit.matches.empty() ? 0 : hit.matches.front().at;
    std::size_t from = line.size() > kLongestLine && first > kLongestLine / 2 ? first - kLongestLine / 2 : 0;
    if (from > 0 && IsLowSurrogate(line[from])) ++from;
    const std::size_t end = from + CutText(line.substr(from), kLongestLine).size();
    std::string text = from > 0 ? "\u2026" : "";
    std::size_t at = from;
    for (const Match& match : hit.matches) {
        if (!terminal || match.at >= end) break;
        const std::size_t last = std::min(match.at + match.size, end);
        text += Plain(line.substr(at, match.at - at));
        text.append(kMarkOn).append(Plain(line.substr(match.at, last - match.at))).append(kMarkOff);
        at = last;
    }
    text += Plain(line.substr(at, end - at));
    if (end < line.size()) text += "\u2026";
    return text;
}

}  // namespace

int List(const Session& session) {
    const auto entries = NotesOrComplaint(session, session.options.closed);
    if (!entries) return kFailed;
    std::vector<std::string> unread;
    const std::vector<StoredNote> notes = LoadNotes(*entries, *session.place.locale, unread);
    session.Terminal().Out(session.options.json ? ListAsJson(notes) : ListLines(notes));
    return ReportUnread(session.Terminal(), unread, kDone);
}

int Show(const Session& session) {
    int code = kDone;
    const auto note = SelectNote(session, code);
    if (!note) return code;
    Console& console = session.Terminal();
    std::u16string text = WithLineFeeds(note->file.text);
    if (console.IsTerminal()) text = Harmless(text);
    if (text.empty() || text.back() != u'\n') text += u'\n';
    console.Out(ToUtf8(text));
    return kDone;
}

int FindWords(const Session& session) {
    const auto entries = NotesOrComplaint(session, session.options.closed);
    if (!entries) return kFailed;
    Console& console = session.Terminal();
    std::vector<std::string> unread;
    const std::vector<Hit> hits = Search(session.options.words).Find(*entries, *session.place.locale, unread);
    for (const Hit& hit : hits) {
        console.Out(std::to_string(hit.note.entry.number) + "  " + hit.note.entry.id + "  " +
                    MarkedLine(hit, console.IsTerminal()) + "\n");
    }
    return ReportUnread(console, unread, hits.empty() ? kNothingFound : kDone);
}

int Path(const Session& session) {
    if (session.options.words.empty()) {
        session.Terminal().Out(session.place.notesFolder + "\n");
        return kDone;
    }
    int code = kDone;
    const auto note = SelectNote(session, code);
    if (!note) return code;
    session.Terminal().Out(AbsolutePath(note->entry.path) + "\n");
    return kDone;
}

}  // namespace quillo::qln
