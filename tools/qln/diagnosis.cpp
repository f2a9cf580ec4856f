#include "diagnosis.h"

#include "files.h"
#include "notes/note_codec.h"
#include "notes/unicode_element.h"
#include "util/byte_search.h"

namespace quillo::qln {
namespace {

constexpr std::string_view kOpen = "<quillo>";
constexpr std::string_view kUnicode = "<unicode>";

/// Where the last line that starts with the opening tag begins: a note's own text may have the tag elsewhere.
std::size_t TornBlockAt(std::string_view bytes) {
    std::size_t found = std::string_view::npos;
    for (std::size_t at = FindTag(bytes, kOpen, 0); at != std::string_view::npos; at = FindTag(bytes, kOpen, at + 1)) {
        const bool startsLine = at == 0 || (at >= 2 && bytes.substr(at - 2, 2) == "\r\n");
        if (startsLine && bytes.find('\n', at) == std::string_view::npos) found = at;
    }
    return found;
}

/// The block is at the end of the file, and its last element is a whole text that cannot be used.
bool HasDamagedUnicode(std::string_view bytes) {
    const NoteFileParts parts = SplitNoteFile(bytes);
    return parts.tags && FindTag(*parts.tags, kUnicode, 0) != std::string_view::npos && !ReadUnicodeElement(bytes);
}

}  // namespace

bool IsLeftoverName(std::string_view name) {
    return name.ends_with(".qln-part") || name.ends_with(".qln.new") || name.ends_with(".qln-part-part");
}

std::optional<Fault> Diagnose(std::string_view bytes, LocaleText& locale) {
    if (bytes.empty()) return Fault::Empty;
    if (bytes.find('\0') != std::string_view::npos) return Fault::Nulls;
    const NoteFile file = ParseNoteFile(bytes, locale);
    if (file.text.size() > kMostNoteCharacters) return Fault::TooLarge;
    if (!file.hasTags) {
        return TornBlockAt(bytes) == std::string_view::npos ? std::nullopt : std::optional(Fault::Torn);
    }
    return HasDamagedUnicode(bytes) ? std::optional(Fault::DamagedUnicode) : std::nullopt;
}

std::optional<std::string> Mended(const Finding& finding, LocaleText& locale) {
    if (finding.fault == Fault::Torn) {
        std::string_view text = std::string_view(finding.bytes).substr(0, TornBlockAt(finding.bytes));
        if (text.ends_with("\r\n")) text.remove_suffix(2);
        NoteFile file;
        file.text = locale.FromNarrow(text);
        return FormatNoteFile(file, locale);
    }
    if (finding.fault == Fault::DamagedUnicode) {
        // The reader has taken the visible text; one more line break at its start keeps an empty first line.
        std::string longer = "\r\n";
        longer += finding.bytes;
        return FormatNoteFile(ParseNoteFile(longer, locale), locale);
    }
    return std::nullopt;
}

const char* Describe(Fault fault) {
    switch (fault) {
        case Fault::Empty:
            return "empty";
        case Fault::Nulls:
            return "null characters in it, so that Quillo does not open it";
        case Fault::Torn:
            return "torn: its tags are cut off";
        case Fault::DamagedUnicode:
            return "damaged: its whole text does not fit the text beside it, which counts";
        case Fault::TooLarge:
            return "larger than a note can be";
        case Fault::Doubled:
            return "a double";
        default:
            return "a leftover of an interrupted write";
    }
}

}  // namespace quillo::qln
