#include "notes/word_start.h"

#include <algorithm>

namespace quillo {
namespace {

enum class Kind { Blank, LineBreak, Letter, Sign };

Kind KindOf(char16_t unit) {
    if (unit == u' ' || unit == u'\t' || unit == u'\u00A0' || unit == u'\u3000') return Kind::Blank;
    if (unit == u'\r' || unit == u'\n') return Kind::LineBreak;
    const bool letter = (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') ||
                        (unit >= u'a' && unit <= u'z') || unit == u'_' || unit > u'\u00A0';
    return letter ? Kind::Letter : Kind::Sign;
}

}  // namespace

std::size_t WordStartBefore(std::u16string_view text, std::size_t place) {
    place = std::min(place, text.size());
    const auto before = [&] { return KindOf(text[place - 1]); };
    if (place > 0 && before() == Kind::LineBreak) {
        const bool pair = place > 1 && text[place - 1] == u'\n' && text[place - 2] == u'\r';
        return place - (pair ? 2 : 1);
    }
    while (place > 0 && before() == Kind::Blank) --place;
    if (place == 0 || before() == Kind::LineBreak) return place;
    const Kind word = before();
    while (place > 0 && before() == word) --place;
    return place;
}

}  // namespace quillo
