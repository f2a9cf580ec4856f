#include <algorithm>

#include "export_notes.h"
#include "iso_time.h"
#include "util/text.h"
#include "version.h"
#include "words.h"

namespace quillo::qln {
namespace {

constexpr std::size_t kWordsShown = 60;
constexpr std::size_t kLongestLine = 75;  // octets, without the line break

/// One content line, folded: no part of it is longer, and no character is split.
std::string Line(const std::string& content) {
    std::string folded;
    std::size_t length = 0;
    for (std::size_t i = 0; i < content.size();) {
        std::size_t next = i + 1;
        while (next < content.size() && (static_cast<unsigned char>(content[next]) & 0xC0U) == 0x80U) ++next;
        if (length + (next - i) > kLongestLine) {
            folded += "\r\n ";
            length = 1;
        }
        folded.append(content, i, next - i);
        length += next - i;
        i = next;
    }
    return folded + "\r\n";
}

std::string Escaped(std::u16string_view text) {
    std::u16string result;
    for (const char16_t unit : Harmless(WithLineFeeds(text))) {
        if (unit == u'\n') {
            result += u"\\n";
        } else {
            if (unit == u'\\' || unit == u';' || unit == u',') result += u'\\';
            result += unit;
        }
    }
    return ToUtf8(result);
}

/// "20261122T153000"
std::string BasicTime(DaySerial when) {
    std::string text = FormatIsoTime(when, 'T');
    text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c == '-' || c == ':'; }), text.end());
    return text;
}

DaySerial SerialOf(FileTime time) {
    constexpr double kSerialOf1970 = 25569;
    constexpr FileTime kSecond = 1'000'000'000;
    constexpr double kSecondsOfDay = 86400;
    return DaySerial{kSerialOf1970 + static_cast<double>(time / kSecond) / kSecondsOfDay};
}

/// The same for one note in every export: its file's name.
std::string StableId(const NoteEntry& note) {
    std::string name;
    for (const char c : note.name.substr(0, note.name.size() - std::min<std::size_t>(note.name.size(), 4))) {
        const bool plain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-';
        if (plain) name += AsciiLower(c);
    }
    return name + (name.empty() ? "" : "-") + note.id + "@quillo";
}

std::string Entry(const StoredNote& note) {
    const std::string words = Escaped(FirstWords(note.file.text, kWordsShown));
    return Line("BEGIN:VEVENT") + Line("UID:" + StableId(note.entry)) +
           Line("DTSTAMP:" + BasicTime(SerialOf(note.entry.modified)) + "Z") +
           Line("DTSTART:" + BasicTime(*note.file.reminder->when)) + Line("SUMMARY:" + words) +
           Line("DESCRIPTION:" + Escaped(note.file.text)) + Line("BEGIN:VALARM") + Line("ACTION:DISPLAY") +
           Line("DESCRIPTION:" + words) + Line("TRIGGER:PT0S") + Line("END:VALARM") + Line("END:VEVENT");
}

}  // namespace

std::string RemindersAsCalendar(const std::vector<StoredNote>& notes) {
    std::string calendar = Line("BEGIN:VCALENDAR") + Line("VERSION:2.0") +
                           Line("PRODID:-//Quillo//qln " QUILLO_VERSION_TEXT "//EN") + Line("CALSCALE:GREGORIAN");
    for (const StoredNote& note : notes) {
        if (note.file.reminder && note.file.reminder->when) calendar += Entry(note);
    }
    return calendar + Line("END:VCALENDAR");
}

}  // namespace quillo::qln
