#include "app/base/note_names.h"

#include "app/base/settings.h"
#include "ports/file_store.h"
#include "ports/shell.h"
#include "util/numbers.h"
#include "util/path_text.h"
#include "util/text.h"
#include "util/unicode.h"

namespace quillo {

namespace {

/// The maximum length of a name made from the text, without its number and extension.
constexpr std::size_t kLongestName = 20;

/// The character that replaces one of the text in a file name; 0 to omit it.
char16_t InFileName(char16_t c) {
    switch (c) {
        case u'\r':
        case u'\n':
        case u'\t':
            return u' ';
        case u':':
            return u'.';
        case u'/':
        case u'\\':
        case u'|':
        case u'*':
            return u'-';
        case u'"':
            return u'\'';
        case u'<':
            return u'(';
        case u'>':
            return u')';
        case u'?':
            return 0;
        default:
            return c < u' ' ? char16_t{0} : c;  // no file system takes a control character
    }
}

std::u16string CleanForFileName(std::u16string_view text) {
    std::u16string clean;
    clean.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t next = i + 1 < text.size() ? text[i + 1] : char16_t{0};
        if (text[i] == u'\r' && next == u'\n') continue;  // a pair is one blank
        if (IsHighSurrogate(text[i]) || IsLowSurrogate(text[i])) {
            // Half of a character is omitted: file systems that keep names in UTF-8 refuse it.
            const bool whole = IsHighSurrogate(text[i]) && IsLowSurrogate(next);
            if (whole) clean.append(text.substr(i++, 2));
            continue;
        }
        if (const char16_t c = InFileName(text[i]); c != 0) clean.push_back(c);
    }
    return std::u16string(Trim(clean));
}

/// The text up to the last blank among characters 2 to 20; without one, the first 20 characters.
std::u16string_view BeginningOf(std::u16string_view clean) {
    const std::size_t blank = clean.substr(0, kLongestName).find_last_of(u' ');
    if (blank != std::u16string_view::npos && blank >= 1) return clean.substr(0, blank);
    return CutText(clean, kLongestName);
}

/// The names of devices, which the system recognizes in the part of a file name before its first period.
bool IsDeviceName(std::u16string_view name) {
    const std::u16string_view base = Trim(name.substr(0, name.find(u'.')));
    for (const std::u16string_view device : {u"con", u"prn", u"aux", u"nul", u"conin$", u"conout$", u"clock$"}) {
        if (EqualsIgnoringAsciiCase(base, device)) return true;
    }
    constexpr std::size_t kPortName = 4;
    if (base.size() != kPortName) return false;
    const bool port = StartsWithIgnoringAsciiCase(base, u"com") || StartsWithIgnoringAsciiCase(base, u"lpt");
    // The superscript digits count too.
    constexpr std::u16string_view kDigits = u"0123456789\u00B9\u00B2\u00B3";
    return port && kDigits.find(base.back()) != std::u16string_view::npos;
}

}  // namespace

std::u16string NoteNames::SuggestNoteFileName(std::u16string_view text) {
    const bool nameless = CleanForFileName(text).empty();
    return SuggestNoteFileName(text,
                               nameless ? shell_.FolderPath(SpecialFolder::DesktopDirectory) : settings_.noteFolder);
}

std::u16string NoteNames::SuggestNoteFileName(std::u16string_view text, std::u16string_view folder) {
    const std::u16string clean = CleanForFileName(text);
    if (clean.empty()) return FreeName(JoinPath(folder, u"Note "), u"", 1);
    std::u16string name(BeginningOf(clean));
    // A file named like a device cannot be created in any folder, and always seems to exist.
    if (IsDeviceName(name)) name.insert(name.begin(), u'_');
    const std::u16string base = JoinPath(folder, name);
    std::u16string plain = base + std::u16string(kNoteExtension);
    return files_.FileExists(plain) ? FreeName(base, u" ", 2) : plain;
}

std::u16string NoteNames::FreeName(std::u16string_view base, std::u16string_view separator, int first) {
    constexpr int kLastNumber = 9999;
    for (int number = first; number <= kLastNumber; ++number) {
        std::u16string path(base);
        path.append(separator).append(FormatInteger(number)).append(kNoteExtension);
        if (!files_.FileExists(path)) return path;
    }
    return {};
}

std::u16string NoteNames::MakeTemporaryFileName() {
    return files_.TemporaryName(u"QL-");
}

std::u16string ResolveShortcut(std::u16string_view path, Shell& shell) {
    constexpr std::u16string_view kLink = u".lnk";
    if (path.size() >= kLink.size() && EqualsIgnoringAsciiCase(path.substr(path.size() - kLink.size()), kLink)) {
        std::u16string target = shell.LinkTarget(path);
        if (!target.empty()) return target;
    }
    return std::u16string(path);
}

}  // namespace quillo
