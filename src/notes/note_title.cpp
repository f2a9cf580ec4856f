#include "notes/note_title.h"

namespace quillo {
namespace {

constexpr std::u16string_view kBlanks = u" \t\r\n\u00A0\u3000";
constexpr std::u16string_view kLineBreaks = u"\r\n";
constexpr std::size_t kLongestTitle = 60;

bool IsFirstHalf(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
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
    std::u16string_view cut = line.substr(0, kLongestTitle + 1);
    const std::size_t blank = cut.find_last_of(kBlanks);
    cut = cut.substr(0, blank == std::u16string_view::npos ? kLongestTitle : blank);
    if (IsFirstHalf(cut.back())) cut.remove_suffix(1);
    cut = cut.substr(0, cut.find_last_not_of(kBlanks) + 1);
    return std::u16string(cut) + u"...";
}

}  // namespace quillo
