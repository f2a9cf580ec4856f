#include "notes/note_title.h"

#include "util/text.h"
#include "util/unicode.h"

namespace quillo {
namespace {

constexpr std::u16string_view kBlanks = u" \t\r\n\u00A0\u3000";
constexpr std::u16string_view kLineBreaks = u"\r\n";
constexpr std::size_t kLongestTitle = 60;
constexpr std::size_t kLongestCaption = 60;

std::u16string WithBlanksForLineBreaks(std::u16string_view text) {
    std::u16string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text.substr(i, 2) == u"\r\n";
        line.push_back(pair ? u' ' : text[i]);
        if (pair) ++i;
    }
    return line;
}

}  // namespace

std::u16string NoteTitle(std::u16string_view text) {
    text = text.substr(0, kTitleSource);
    const std::size_t start = text.find_first_not_of(kBlanks);
    if (start == std::u16string_view::npos) return u"Quillo";
    std::u16string_view line = text.substr(start);
    line = line.substr(0, line.find_first_of(kLineBreaks));
    line = line.substr(0, line.find_last_not_of(kBlanks) + 1);
    if (line.size() <= kLongestTitle) return std::u16string(line);

    // At the end of a word; a single word that is too long is cut, but not inside a character.
    const std::size_t blank = line.substr(0, kLongestTitle + 1).find_last_of(kBlanks);
    std::u16string_view cut = blank == std::u16string_view::npos ? CutText(line, kLongestTitle) : line.substr(0, blank);
    cut = cut.substr(0, cut.find_last_not_of(kBlanks) + 1);
    return std::u16string(cut) + u"...";
}

std::u16string NoteIconCaption(std::u16string_view text) {
    std::u16string caption = WithBlanksForLineBreaks(Trim(text));
    if (caption.size() <= kLongestCaption) return caption;
    return std::u16string(CutText(caption, kLongestCaption)) + u"...";
}

}  // namespace quillo
