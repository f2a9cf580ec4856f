#include "notes/note_tags.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>

#include "ports/locale_text.h"
#include "util/numbers.h"
#include "util/text.h"

namespace quillo {
namespace {

constexpr std::u16string_view kOpenRoot = u"<quillo>";
constexpr std::u16string_view kCloseRoot = u"</quillo>";
constexpr std::u16string_view kExtension = u".qln";

// The first and the last whole day of the calendar, 1 January 100 and 31 December 9999.
constexpr double kFirstDay = -657'434;
constexpr double kLastDay = 2'958'465;

bool EndsWith(std::u16string_view text, std::u16string_view ending) {
    return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

// The content of the first element of that name. `threshold` is the least offset at which the closing tag may stand,
// counted (intended) from the start of the tag text, not from the opening tag.
std::optional<std::u16string> Element(std::u16string_view tags, const std::u16string& name, std::size_t threshold) {
    const std::size_t open = tags.find(u"<" + name + u">");
    if (open == std::u16string_view::npos) return std::nullopt;
    const std::size_t close = tags.find(u"</" + name + u">", open + 1);
    if (close == std::u16string_view::npos || close < threshold) return std::nullopt;
    const std::size_t first = open + name.size() + 2;
    return std::u16string(tags.substr(first, close - first));
}

/// The entries between commas; a text that is empty has none.
template <std::size_t kCount>
std::array<std::optional<std::u16string_view>, kCount> SplitEntries(std::u16string_view text) {
    std::array<std::optional<std::u16string_view>, kCount> entries;
    if (text.empty()) return entries;
    for (auto& entry : entries) {
        const std::size_t comma = text.find(u',');
        entry = text.substr(0, comma);
        if (comma == std::u16string_view::npos) break;
        text.remove_prefix(comma + 1);
    }
    return entries;
}

using Entry = std::optional<std::u16string_view>;

// A missing entry is 0; one that is present but no number, or empty, changes nothing.
void ReadLength(const Entry& entry, float& length, LocaleText& locale) {
    const auto number = entry ? locale.ParseNumber(*entry) : 0.0;
    if (number && std::fabs(*number) <= std::numeric_limits<float>::max()) length = static_cast<float>(*number);
}

std::optional<std::int32_t> ReadWhole(const Entry& entry, LocaleText& locale) {
    if (!entry) return 0;
    const auto number = locale.ParseNumber(*entry);
    return number ? RoundHalfEven(*number) : std::nullopt;
}

void ReadColor(const Entry& entry, ColorWord& color, LocaleText& locale) {
    if (const auto number = ReadWhole(entry, locale)) color = ColorWord::FromNumber(*number);
}

void ReadFlag(const Entry& entry, bool& flag, LocaleText& locale) {
    if (!entry || EqualsIgnoringAsciiCase(*entry, u"false")) {
        flag = false;
    } else if (EqualsIgnoringAsciiCase(*entry, u"true")) {
        flag = true;
    } else if (const auto number = locale.ParseNumber(*entry)) {
        flag = *number != 0;
    }
}

std::u16string FlagText(bool flag) {
    return flag ? u"True" : u"False";
}

}  // namespace

TagElements FindTagElements(std::u16string_view tagText, LocaleText& locale) {
    const std::u16string lower = locale.ToLower(Trim(tagText));
    std::u16string_view tags = lower;
    if (tags.substr(0, kOpenRoot.size()) == kOpenRoot) tags.remove_prefix(kOpenRoot.size());
    // Intended: a text that still bears its closing root tag keeps nothing of its elements. What the reader of files
    // passes never does, so no user meets it.
    const std::size_t kept = kCloseRoot.size() + 1;
    if (EndsWith(tags, kCloseRoot) && tags.size() > kept) tags.remove_prefix(tags.size() - kept);

    TagElements elements;
    elements.position = Element(tags, u"position", 12);
    elements.reminder = Element(tags, u"reminder", 12);
    elements.appearance = Element(tags, u"appearance", 14);
    elements.filename = Element(tags, u"filename", 12);
    elements.tempfilename = Element(tags, u"tempfilename", 16);
    elements.namesFile = tags.find(u"<filename>") != std::u16string_view::npos;
    return elements;
}

TwipsRect ReadPosition(std::u16string_view text, const TwipsRect& current, LocaleText& locale) {
    const auto entries = SplitEntries<4>(text);
    TwipsRect position = current;
    ReadLength(entries[0], position.left, locale);
    ReadLength(entries[1], position.top, locale);
    ReadLength(entries[2], position.width, locale);
    ReadLength(entries[3], position.height, locale);
    return position;
}

std::u16string ReadFileName(const TagElements& tags, std::u16string_view openedPath, std::u16string_view current,
                            LocaleText& locale) {
    std::u16string name(current);
    if (!openedPath.empty() && tags.namesFile) {
        name = openedPath;
    } else if (tags.filename && tags.filename->size() > kExtension.size() && EndsWith(*tags.filename, kExtension)) {
        name = *tags.filename;
    }
    if (name.empty() && tags.tempfilename) {
        // The file holds its path in the code page: so must be what it is compared with.
        const std::u16string asStored = locale.ToLower(locale.FromNarrow(locale.ToNarrow(openedPath)));
        if (*tags.tempfilename != asStored) name = openedPath;
    }
    return name;
}

std::u16string WriteAppearance(const Note& note, WindowState state) {
    return FlagText(note.LargeText) + u"," + FlagText(note.OwnColors) + u"," + FormatInteger(note.NoteColor.Number()) +
           u"," + FormatInteger(note.BorderColor.Number()) + u"," + FormatInteger(note.TextColor.Number()) + u"," +
           FormatInteger(static_cast<int>(state));
}

std::optional<int> ReadAppearance(std::u16string_view text, Note& note, LocaleText& locale) {
    const auto entries = SplitEntries<6>(text);
    ReadFlag(entries[0], note.LargeText, locale);
    ReadFlag(entries[1], note.OwnColors, locale);
    ReadColor(entries[2], note.NoteColor, locale);
    ReadColor(entries[3], note.BorderColor, locale);
    ReadColor(entries[4], note.TextColor, locale);
    const auto state = ReadWhole(entries[5], locale);
    if (!state) return std::nullopt;
    if (*state == std::numeric_limits<std::int32_t>::min()) return std::numeric_limits<int>::max();
    return std::abs(*state);
}

std::u16string WriteReminder(const Note& note) {
    return note.ReminderSet ? u"#" + FormatSerial(note.ReminderTime.days) : std::u16string();
}

void ReadReminder(std::u16string_view text, Note& note, LocaleText& locale) {
    const std::u16string_view trimmed = Trim(text);
    if (trimmed.empty()) return;
    std::optional<DaySerial> when;
    if (trimmed.front() == u'#') {
        const double days = ParseLeadingNumber(trimmed.substr(1));
        if (days > kFirstDay - 1 && days < kLastDay + 1) when = DaySerial{days};
    } else {
        when = locale.ParseDate(trimmed);
    }
    note.ReminderSet = when.has_value();
    if (when) note.ReminderTime = *when;
}

}  // namespace quillo
