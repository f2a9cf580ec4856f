#include <algorithm>

#include "export_notes.h"
#include "iso_time.h"
#include "words.h"

namespace quillo::qln {
namespace {

constexpr std::u16string_view kMarker = u"<!-- Notes of Quillo -->";
constexpr std::u16string_view kInfo = u"note";
constexpr std::size_t kWordsShown = 60;

std::u16string TextOf(const StoredNote& note) {
    return WithLineFeeds(note.file.text);
}

/// More backticks than the longest run of them in the text.
std::u16string FenceFor(std::u16string_view text) {
    std::size_t longest = 2;
    std::size_t run = 0;
    for (const char16_t unit : text) {
        run = unit == u'`' ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return std::u16string(longest + 1, u'`');
}

/// The first words as a heading, with Markdown's special characters escaped.
std::string Heading(const StoredNote& note) {
    std::u16string heading;
    for (const char16_t unit : FirstWords(note.file.text, kWordsShown)) {
        constexpr std::u16string_view kMarks = u"\\`*_{}[]<>()#+-.!|~&";
        if (kMarks.find(unit) != std::u16string_view::npos) heading += u'\\';
        heading += unit;
    }
    return ToUtf8(heading);
}

std::u16string_view TakeLine(std::u16string_view& rest) {
    const std::size_t end = std::min(rest.find(u'\n'), rest.size());
    const std::u16string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return line;
}

/// The fence that a line opens; "" if it opens none of ours.
std::u16string_view OpenedFence(std::u16string_view line) {
    const std::size_t ticks = std::min(line.find_first_not_of(u'`'), line.size());
    return ticks >= 3 && line.substr(ticks) == kInfo ? line.substr(0, ticks) : std::u16string_view{};
}

}  // namespace

std::string DescribeNote(const StoredNote& note) {
    std::string text(note.entry.closed ? "closed"
                                       : StateName(note.file.appearance ? note.file.appearance->state : std::nullopt));
    if (note.file.reminder && note.file.reminder->when) {
        text += ", reminder " + FormatIsoMinute(*note.file.reminder->when);
    }
    return text + ", " + ColorName(note.file.appearance);
}

std::string NoteAsText(const StoredNote& note) {
    return ToUtf8(TextOf(note)) + "\n";
}

std::string NotesAsText(const std::vector<StoredNote>& notes) {
    std::string all;
    for (const StoredNote& note : notes) {
        if (!all.empty()) all += "\n";
        all += "==== " + note.entry.id + ": " + DescribeNote(note) + "\n" + NoteAsText(note);
    }
    return all;
}

std::string NotesAsMarkdown(const std::vector<StoredNote>& notes) {
    std::string all = ToUtf8(kMarker) + "\n\n# Notes\n";
    for (const StoredNote& note : notes) {
        const std::u16string text = TextOf(note);
        const std::string fence = ToUtf8(FenceFor(text));
        all += "\n## " + Heading(note) + "\n\n- id: " + note.entry.id + "\n- note: " + DescribeNote(note) + "\n\n" +
               fence + ToUtf8(kInfo) + "\n" + ToUtf8(text) + "\n" + fence + "\n";
    }
    return all;
}

std::optional<std::vector<std::u16string>> TextsFromMarkdown(std::u16string_view markdown) {
    const std::u16string plain = WithLineFeeds(markdown);
    std::u16string_view rest = plain;
    if (TakeLine(rest) != kMarker) return std::nullopt;
    std::vector<std::u16string> texts;
    while (!rest.empty()) {
        const std::u16string_view fence = OpenedFence(TakeLine(rest));
        if (fence.empty()) continue;
        std::u16string text;
        bool first = true;
        while (!rest.empty()) {
            const std::u16string_view line = TakeLine(rest);
            if (line == fence) break;
            if (!first) text += u'\n';
            text += line;
            first = false;
        }
        texts.push_back(std::move(text));
    }
    return texts;
}

}  // namespace quillo::qln
