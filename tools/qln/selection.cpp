#include "selection.h"

#include <algorithm>
#include <cctype>
#include <limits>

#include "iso_time.h"
#include "search.h"
#include "util/text.h"
#include "words.h"

namespace quillo::qln {
namespace {

constexpr std::size_t kIdDigits = 8;
constexpr std::size_t kWordsShown = 40;

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

bool IsDigits(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool IsId(const std::string& text) {
    return text.size() == kIdDigits &&
           std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isxdigit(c) != 0; });
}

int NumberOf(const std::string& digits) {
    constexpr std::size_t kMostDigits = 9;
    return digits.size() > kMostDigits ? std::numeric_limits<int>::max() : std::stoi(digits);
}

std::vector<NoteEntry> WithNumber(const std::vector<NoteEntry>& notes, int number) {
    std::vector<NoteEntry> found;
    for (const NoteEntry& note : notes) {
        if (note.number == number) found.push_back(note);
    }
    return found;
}

std::vector<NoteEntry> WithId(const std::vector<NoteEntry>& notes, std::string id) {
    std::transform(id.begin(), id.end(), id.begin(), [](char c) { return AsciiLower(c); });
    std::vector<NoteEntry> found;
    for (const NoteEntry& note : notes) {
        if (note.id == id) found.push_back(note);
    }
    return found;
}

std::string Padded(const std::string& text, std::size_t characters, std::size_t width) {
    return text + std::string(width > characters ? width - characters : 0, ' ');
}

std::string ReminderText(const NoteFile& file) {
    return file.reminder && file.reminder->when ? FormatIsoMinute(*file.reminder->when) : "-";
}

/// The notes that the words name, read from their files; several, one or none.
std::vector<StoredNote> Candidates(const Session& session, const std::vector<NoteEntry>& notes,
                                   std::vector<std::string>& unread) {
    const std::string which = Joined(session.options.words);
    LocaleText& locale = *session.place.locale;
    std::vector<NoteEntry> named;
    if (IsDigits(which)) named = WithNumber(notes, NumberOf(which));
    // An id may be digits alone; it counts as an id only if no note has that number.
    if (named.empty() && IsId(which)) named = WithId(notes, which);
    if (!named.empty()) return LoadNotes(named, locale, unread);
    if (IsDigits(which)) return {};
    if (const auto file = EntryOfFile(which)) {
        for (const NoteEntry& note : notes) {
            if (AbsolutePath(note.path) == AbsolutePath(which)) return LoadNotes({note}, locale, unread);
        }
        return LoadNotes({*file}, locale, unread);
    }
    std::vector<StoredNote> found;
    for (Hit& hit : Search(session.options.words).Find(notes, locale, unread)) found.push_back(std::move(hit.note));
    return found;
}

}  // namespace

void Complain(Console& console, std::string_view message) {
    console.Error("qln: " + std::string(message) + "\n");
}

std::optional<std::vector<NoteEntry>> NotesOrComplaint(const Session& session, bool closed) {
    auto notes = ListNotes(session.place, closed);
    if (!notes) {
        Complain(session.Terminal(), "the notes folder cannot be read: " + HarmlessName(session.place.notesFolder));
    }
    return notes;
}

int ReportUnread(Console& console, const std::vector<std::string>& unread, int code) {
    for (const std::string& path : unread) Complain(console, "cannot be read: " + HarmlessName(path));
    return unread.empty() ? code : kFailed;
}

std::string ListLines(const std::vector<StoredNote>& notes) {
    std::size_t numberWidth = 1;
    std::size_t wordsWidth = 0;
    std::size_t colorWidth = 0;
    for (const StoredNote& note : notes) {
        numberWidth = std::max(numberWidth, std::to_string(note.entry.number).size());
        wordsWidth = std::max(wordsWidth, CharacterCount(FirstWords(note.file.text, kWordsShown)));
        colorWidth = std::max(colorWidth, ColorName(note.file.appearance).size());
    }
    std::string lines;
    for (const StoredNote& note : notes) {
        const std::string number = std::to_string(note.entry.number);
        const std::u16string words = FirstWords(note.file.text, kWordsShown);
        const std::string color = ColorName(note.file.appearance);
        const std::string state(note.entry.closed
                                    ? "closed"
                                    : StateName(note.file.appearance ? note.file.appearance->state : std::nullopt));
        const std::string reminder = ReminderText(note.file);
        lines += std::string(numberWidth - number.size(), ' ') + number + "  " + note.entry.id + "  " +
                 Padded(ToUtf8(words), CharacterCount(words), wordsWidth) + "  " + Padded(state, state.size(), 9) +
                 "  " + Padded(reminder, reminder.size(), 16) + "  " + Padded(color, color.size(), colorWidth) + "  " +
                 HarmlessName(note.entry.name) + "\n";
    }
    return lines;
}

std::optional<StoredNote> SelectNote(const Session& session, int& code) {
    code = kFailed;
    const auto notes = NotesOrComplaint(session, session.options.closed);
    if (!notes) return std::nullopt;
    std::vector<std::string> unread;
    std::vector<StoredNote> found = Candidates(session, *notes, unread);
    if (found.size() == 1) return std::move(found.front());
    if (found.empty()) {
        code = ReportUnread(session.Terminal(), unread, kNothingFound);
        if (unread.empty()) {
            Complain(session.Terminal(), "no such note: " + HarmlessName(Joined(session.options.words)));
        }
        return std::nullopt;
    }
    Complain(session.Terminal(), "more than one note is meant; take its number or id:");
    session.Terminal().Error(ListLines(found));
    code = kWrongUse;
    return std::nullopt;
}

}  // namespace quillo::qln
