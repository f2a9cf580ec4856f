#include "notes/note_codec.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>

#include "notes/unicode_element.h"
#include "ports/locale_text.h"
#include "util/byte_search.h"
#include "util/numbers.h"
#include "util/text.h"
#include "util/unicode.h"

namespace quillo {
namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::u16string_view kOpenRoot = u"<quillo>";
constexpr std::u16string_view kCloseRoot = u"</quillo>";
constexpr std::u16string_view kExtension = u".qln";

// The first and the last whole day of the calendar, 1 January 100 and 31 December 9999.
constexpr double kFirstDay = -657'434;
constexpr double kLastDay = 2'958'465;

// Fields.

using Entry = std::optional<std::u16string_view>;

/// The entries between commas; an empty text has none.
template <std::size_t kCount>
std::array<Entry, kCount> SplitEntries(std::u16string_view text) {
    std::array<Entry, kCount> entries;
    if (text.empty()) return entries;
    for (Entry& entry : entries) {
        const std::size_t comma = text.find(u',');
        entry = text.substr(0, comma);
        if (comma == std::u16string_view::npos) break;
        text.remove_prefix(comma + 1);
    }
    return entries;
}

// A missing entry is 0; an entry that is empty or not a number leaves the value absent.

std::optional<float> ReadLength(const Entry& entry, LocaleText& locale) {
    const auto number = entry ? locale.ParseNumber(*entry) : 0.0;
    if (!number || std::fabs(*number) > std::numeric_limits<float>::max()) return std::nullopt;
    return static_cast<float>(*number);
}

std::optional<ColorWord> ReadColor(const Entry& entry, LocaleText& locale) {
    const auto number = entry ? locale.ParseNumber(*entry) : 0.0;
    const auto whole = number ? RoundHalfEven(*number) : std::nullopt;
    return whole ? std::optional(ColorWord::FromNumber(*whole)) : std::nullopt;
}

std::optional<bool> ReadFlag(const Entry& entry, LocaleText& locale) {
    if (!entry || EqualsIgnoringAsciiCase(*entry, u"false")) return false;
    if (EqualsIgnoringAsciiCase(*entry, u"true")) return true;
    const auto number = locale.ParseNumber(*entry);
    return number ? std::optional(*number != 0) : std::nullopt;
}

/// Reads the absolute value. Any other number, including a fraction, changes nothing.
std::optional<WindowState> ReadState(const Entry& entry, LocaleText& locale) {
    const auto number = entry ? locale.ParseNumber(*entry) : 0.0;
    if (!number) return std::nullopt;
    for (const WindowState state : {WindowState::Shown, WindowState::Hidden, WindowState::Minimized}) {
        if (std::fabs(*number) == static_cast<double>(state)) return state;
    }
    return std::nullopt;
}

template <typename T, typename Format>
std::u16string TextOf(const std::optional<T>& value, Format format) {
    return value ? std::u16string(format(*value)) : std::u16string();
}

std::u16string FlagText(bool flag) {
    return flag ? u"True" : u"False";
}

std::u16string ColorText(ColorWord color) {
    return FormatInteger(color.Number());
}

NotePosition ParsePosition(std::u16string_view text, LocaleText& locale) {
    const auto entries = SplitEntries<4>(text);
    return NotePosition{ReadLength(entries[0], locale), ReadLength(entries[1], locale), ReadLength(entries[2], locale),
                        ReadLength(entries[3], locale)};
}

std::u16string FormatPosition(const NotePosition& position, LocaleText& locale) {
    const std::u16string decimal = locale.DecimalSeparator();
    const auto length = [&decimal](float twips) { return FormatSingle(twips, decimal); };
    return TextOf(position.left, length) + u"," + TextOf(position.top, length) + u"," + TextOf(position.width, length) +
           u"," + TextOf(position.height, length);
}

bool IsNoteFileName(std::u16string_view path) {
    return path.size() > kExtension.size() && path.substr(path.size() - kExtension.size()) == kExtension;
}

// Elements.

/// One element of the tag block, in the order of writing. A new element is a member of NoteFile and a row here.
struct ElementRow {
    std::u16string_view name;
    /// The smallest offset at which the closing tag may begin. It counts (intended) from the start of the tag text, not
    /// from the opening tag.
    std::size_t threshold;
    /// Reads the content, which is in lower case; null for an element that the reader ignores.
    void (*read)(std::u16string_view content, NoteFile& file, LocaleText& locale);
    /// The content; nothing if the file has no such element.
    std::optional<std::u16string> (*write)(const NoteFile& file, LocaleText& locale);
};

std::optional<std::u16string> PathOf(const NoteFile& file, FileKind kind) {
    return file.kind == kind ? std::optional(file.path) : std::nullopt;
}

constexpr std::u16string_view kOwnFileName = u"filename";

constexpr ElementRow kElements[] = {
    {u"position", 12,
     [](std::u16string_view content, NoteFile& file, LocaleText& locale) {
         file.position = ParsePosition(content, locale);
     },
     [](const NoteFile& file, LocaleText& locale) {
         return file.position ? std::optional(FormatPosition(*file.position, locale)) : std::nullopt;
     }},
    {u"appearance", 14,
     [](std::u16string_view content, NoteFile& file, LocaleText& locale) {
         file.appearance = ParseAppearance(content, locale);
     },
     [](const NoteFile& file, LocaleText&) {
         return file.appearance ? std::optional(FormatAppearance(*file.appearance)) : std::nullopt;
     }},
    {u"reminder", 12,
     [](std::u16string_view content, NoteFile& file, LocaleText& locale) {
         file.reminder = ParseReminder(content, locale);
     },
     [](const NoteFile& file, LocaleText&) { return std::optional(FormatReminder(file.reminder)); }},
    {u"nodelete", 0, nullptr, [](const NoteFile& file, LocaleText&) { return PathOf(file, FileKind::StorageCopy); }},
    {u"tempfilename", 16,
     [](std::u16string_view content, NoteFile& file, LocaleText&) {
         file.kind = FileKind::ProgramNamed;
         file.path = content;
     },
     [](const NoteFile& file, LocaleText&) { return PathOf(file, FileKind::ProgramNamed); }},
    {kOwnFileName, 12,
     [](std::u16string_view content, NoteFile& file, LocaleText&) {
         if (IsNoteFileName(content)) file.path = content;
     },
     [](const NoteFile& file, LocaleText&) { return PathOf(file, FileKind::OwnFile); }},
};

std::u16string OpeningTag(std::u16string_view name) {
    return u"<" + std::u16string(name) + u">";
}

std::u16string ClosingTag(std::u16string_view name) {
    return u"</" + std::u16string(name) + u">";
}

/// The content of the first element with that name; nothing if it cannot be used.
std::optional<std::u16string_view> ContentOf(std::u16string_view tags, const ElementRow& row) {
    const std::u16string opening = OpeningTag(row.name);
    const std::size_t open = tags.find(opening);
    if (open == std::u16string_view::npos) return std::nullopt;
    const std::size_t close = tags.find(ClosingTag(row.name), open + 1);
    if (close == std::u16string_view::npos || close < row.threshold) return std::nullopt;
    const std::size_t first = open + opening.size();
    return tags.substr(first, close - first);
}

std::u16string FormatBlock(const NoteFile& file, LocaleText& locale) {
    std::u16string block(kOpenRoot);
    for (const ElementRow& row : kElements) {
        if (const auto content = row.write(file, locale)) {
            block += OpeningTag(row.name) + (row.read == nullptr ? u"" : *content) + ClosingTag(row.name);
        }
    }
    return block;
}

// The text.

// The text is head and tail joined, so a line break may be split between the two.
void DropLeadingLineBreak(std::string_view& head, std::string_view& tail) {
    if (head.substr(0, 2) == kLineBreak) {
        head.remove_prefix(2);
    } else if (head.empty() && tail.substr(0, 2) == kLineBreak) {
        tail.remove_prefix(2);
    } else if (head == "\r" && !tail.empty() && tail.front() == '\n') {
        head = {};
        tail.remove_prefix(1);
    }
}

void DropTrailingLineBreak(std::string_view& head, std::string_view& tail) {
    if (tail.ends_with(kLineBreak)) {
        tail.remove_suffix(2);
    } else if (tail.empty() && head.ends_with(kLineBreak)) {
        head.remove_suffix(2);
    } else if (tail == "\n" && !head.empty() && head.back() == '\r') {
        tail = {};
        head.remove_suffix(1);
    }
}

/// The text of a file without a tag block. A byte-order mark identifies the encoding. Without one, bytes beyond ASCII
/// that form well-formed UTF-8 are almost certainly UTF-8, except in a double-byte code page.
std::u16string DecodePlainText(std::string_view bytes, LocaleText& locale) {
    constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
    constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
    constexpr std::string_view kBigEndianMark = "\xFE\xFF";
    if (bytes.starts_with(kLittleEndianMark)) return DecodeUtf16(bytes.substr(2), ByteOrder::LittleEndian);
    if (bytes.starts_with(kBigEndianMark)) return DecodeUtf16(bytes.substr(2), ByteOrder::BigEndian);
    const bool marked = bytes.starts_with(kUtf8Mark);
    if (marked || (!IsAscii(bytes) && locale.HasSingleByteCodePage())) {
        const std::string_view encoded = bytes.substr(marked ? kUtf8Mark.size() : 0);
        if (auto text = DecodeUtf8(encoded, LoneSurrogates::Refuse)) return *std::move(text);
    }
    return locale.FromNarrow(bytes);
}

/// True if the single-byte form yields another text when read, or one that its own tags have cut.
bool IsDestroyedByCodePage(std::u16string_view text, std::string_view narrow, LocaleText& locale) {
    if (FindTag(narrow, "<quillo>", 0) != std::string_view::npos) return true;
    if (FindTag(narrow, "</quillo>", 0) != std::string_view::npos) return true;
    return !(IsAscii(narrow) && narrow.find('?') == std::string_view::npos) && locale.FromNarrow(narrow) != text;
}

}  // namespace

std::string NoteFileParts::JoinedText() const {
    std::string text;
    text.reserve(head.size() + tail.size());
    return text.append(head).append(tail);
}

NoteFileParts SplitNoteFile(std::string_view content) {
    constexpr std::string_view kOpen = "<quillo>";
    constexpr std::string_view kClose = "</quillo>";
    const std::size_t open = FindTag(content, kOpen, 0);
    if (open == std::string_view::npos) return {content, {}, std::nullopt};
    const std::size_t first = open + kOpen.size();
    const std::size_t close = FindTag(content, kClose, open + 1);
    if (close == std::string_view::npos || close <= first) return {content, {}, std::nullopt};

    NoteFileParts parts{content.substr(0, open), content.substr(close + kClose.size()),
                        content.substr(first, close - first)};
    // Intended: a note that begins with an empty line loses that line when it is opened.
    DropLeadingLineBreak(parts.head, parts.tail);
    DropTrailingLineBreak(parts.head, parts.tail);
    return parts;
}

TwipsRect MovedTo(const TwipsRect& place, const NotePosition& position) {
    return TwipsRect{position.left.value_or(place.left), position.top.value_or(place.top),
                     position.width.value_or(place.width), position.height.value_or(place.height)};
}

NoteFile ParseNoteFile(std::string_view bytes, LocaleText& locale) {
    NoteFile file;
    file.keepsFile = bytes.find(kKeepMarker) != std::string_view::npos;
    if (std::optional<UnicodeNote> whole = ReadUnicodeElement(bytes)) {
        file.hasTags = true;
        // Intended, as in every note file: an empty first line is lost.
        const bool emptyFirstLine = whole->text.substr(0, 2) == u"\r\n";
        file.text = emptyFirstLine ? whole->text.substr(2) : std::move(whole->text);
        ReadTagText(locale.FromNarrow(whole->tags), file, locale);
        return file;
    }
    const NoteFileParts parts = SplitNoteFile(bytes);
    if (!parts.tags) {
        file.text = DecodePlainText(bytes, locale);
        return file;
    }
    file.hasTags = true;
    file.text = locale.FromNarrow(parts.JoinedText());
    ReadTagText(locale.FromNarrow(*parts.tags), file, locale);
    return file;
}

std::optional<std::string> FormatNoteFile(const NoteFile& file, LocaleText& locale) {
    std::optional<std::string> bytes = locale.ToNarrow(file.text);
    const std::optional<std::string> block = locale.ToNarrow(FormatBlock(file, locale));
    if (!bytes || !block) return std::nullopt;
    std::string unicode;
    if (IsDestroyedByCodePage(file.text, *bytes, locale)) unicode = FormatUnicodeElement(file.text, *bytes);
    bytes->append(kLineBreak).append(*block).append(unicode).append("</quillo>");
    return bytes;
}

void ReadTagText(std::u16string_view tagText, NoteFile& file, LocaleText& locale) {
    const std::u16string lower = locale.ToLower(Trim(tagText));
    std::u16string_view tags = lower;
    if (tags.starts_with(kOpenRoot)) tags.remove_prefix(kOpenRoot.size());
    // Intended: if the text still has its closing root tag, none of its elements is read. The reader of files never
    // passes such a text, so no user is affected.
    const std::size_t kept = kCloseRoot.size() + 1;
    const bool closed = tags.size() >= kept && tags.ends_with(kCloseRoot);
    if (closed) tags.remove_prefix(tags.size() - kept);

    for (const ElementRow& row : kElements) {
        // The real place of a file takes precedence over the path in this element, so its opening tag is enough.
        if (row.name == kOwnFileName && tags.find(OpeningTag(row.name)) != std::u16string_view::npos) {
            file.kind = FileKind::OwnFile;
            file.path.clear();
        }
        const auto content = row.read == nullptr ? std::nullopt : ContentOf(tags, row);
        if (content) row.read(*content, file, locale);
    }
}

std::u16string FileNameOf(const NoteFile& file, std::u16string_view openedPath, std::u16string_view current,
                          LocaleText& locale) {
    std::u16string name(current);
    if (file.kind == FileKind::OwnFile) {
        if (!openedPath.empty()) return std::u16string(openedPath);
        if (!file.path.empty()) return file.path;
    }
    if (file.kind == FileKind::ProgramNamed && name.empty()) {
        // The file has its path in the code page; the path to compare it with must have the same form.
        const std::u16string asStored =
            locale.ToLower(locale.FromNarrow(locale.ToNarrow(openedPath).value_or(std::string())));
        if (file.path != asStored) name = openedPath;
    }
    return name;
}

std::u16string FormatAppearance(const NoteAppearance& appearance) {
    const auto state = [](WindowState s) { return FormatInteger(static_cast<int>(s)); };
    return TextOf(appearance.largeText, FlagText) + u"," + TextOf(appearance.ownColors, FlagText) + u"," +
           TextOf(appearance.noteColor, ColorText) + u"," + TextOf(appearance.borderColor, ColorText) + u"," +
           TextOf(appearance.textColor, ColorText) + u"," + TextOf(appearance.state, state);
}

NoteAppearance ParseAppearance(std::u16string_view text, LocaleText& locale) {
    const auto entries = SplitEntries<6>(text);
    return NoteAppearance{ReadFlag(entries[0], locale),  ReadFlag(entries[1], locale),  ReadColor(entries[2], locale),
                          ReadColor(entries[3], locale), ReadColor(entries[4], locale), ReadState(entries[5], locale)};
}

std::u16string FormatReminder(const std::optional<NoteReminder>& reminder) {
    return reminder && reminder->when ? u"#" + FormatSerial(reminder->when->days) : std::u16string();
}

std::optional<NoteReminder> ParseReminder(std::u16string_view text, LocaleText& locale) {
    const std::u16string_view trimmed = Trim(text);
    if (trimmed.empty()) return std::nullopt;
    if (trimmed.front() != u'#') return NoteReminder{locale.ParseDate(trimmed)};
    const double days = ParseLeadingNumber(trimmed.substr(1));
    if (!(days > kFirstDay - 1 && days < kLastDay + 1)) return NoteReminder{};
    return NoteReminder{DaySerial{days}};
}

}  // namespace quillo
