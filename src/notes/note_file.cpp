#include "notes/note_file.h"

#include "ports/locale_text.h"
#include "util/byte_search.h"
#include "util/numbers.h"

namespace quillo {
namespace {

constexpr std::string_view kOpenRoot = "<quillo>";
constexpr std::string_view kCloseRoot = "</quillo>";
constexpr std::string_view kLineBreak = "\r\n";

// The text is head and tail joined, so that a line break may straddle the two.
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

bool EndsWithLineBreak(std::string_view text) {
    return text.size() >= 2 && text.substr(text.size() - 2) == kLineBreak;
}

void DropTrailingLineBreak(std::string_view& head, std::string_view& tail) {
    if (EndsWithLineBreak(tail)) {
        tail.remove_suffix(2);
    } else if (tail.empty() && EndsWithLineBreak(head)) {
        head.remove_suffix(2);
    } else if (tail == "\n" && !head.empty() && head.back() == '\r') {
        tail = {};
        head.remove_suffix(1);
    }
}

std::u16string FileElement(FileKind kind, std::u16string_view path) {
    if (kind == FileKind::StorageCopy) return u"<nodelete></nodelete>";
    const std::u16string name = kind == FileKind::ProgramNamed ? u"tempfilename>" : u"filename>";
    return u"<" + name + std::u16string(path) + u"</" + name;
}

}  // namespace

std::string NoteFileParts::JoinedText() const {
    std::string text;
    text.reserve(head.size() + tail.size());
    return text.append(head).append(tail);
}

NoteFileParts SplitNoteFile(std::string_view content) {
    const std::size_t open = FindTag(content, kOpenRoot, 0);
    if (open == std::string_view::npos) return {content, {}, std::nullopt};
    const std::size_t first = open + kOpenRoot.size();
    const std::size_t close = FindTag(content, kCloseRoot, open + 1);
    if (close == std::string_view::npos || close <= first) return {content, {}, std::nullopt};

    NoteFileParts parts{content.substr(0, open), content.substr(close + kCloseRoot.size()),
                        content.substr(first, close - first)};
    // Intended: a note that begins with an empty line loses that line when it is opened.
    DropLeadingLineBreak(parts.head, parts.tail);
    DropTrailingLineBreak(parts.head, parts.tail);
    return parts;
}

std::string WriteNoteFile(const NoteFileContent& content, FileKind kind, std::u16string_view path, LocaleText& locale) {
    const std::u16string decimal = locale.DecimalSeparator();
    const TwipsRect& position = content.position;
    std::u16string file = content.text;
    file += u"\r\n<quillo><position>";
    file += FormatSingle(position.left, decimal) + u"," + FormatSingle(position.top, decimal) + u"," +
            FormatSingle(position.width, decimal) + u"," + FormatSingle(position.height, decimal);
    file += u"</position><appearance>" + content.appearance + u"</appearance><reminder>" + content.reminder;
    file += u"</reminder>" + FileElement(kind, path) + u"</quillo>";
    return locale.ToNarrow(file);
}

}  // namespace quillo
