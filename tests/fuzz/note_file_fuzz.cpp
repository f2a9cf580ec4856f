// A note file may contain any bytes: reading them must neither crash nor lose text. The result can be written, and
// reading that gives the same value.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "notes/note_codec.h"
#include "testing/fake_locale_text.h"
#include "util/byte_search.h"
#include "util/numbers.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void RequireNothingIsLost(std::string_view content) {
    const quillo::NoteFileParts parts = quillo::SplitNoteFile(content);
    const std::string text = parts.JoinedText();
    if (!parts.tags) return Require(text == content);
    Require(!parts.tags->empty());
    // Besides the root tags (17 bytes), at most two line breaks are dropped.
    const std::size_t lost = content.size() - text.size() - parts.tags->size();
    Require(lost == 17 || lost == 19 || lost == 21);
}

/// The bytes of the single-byte form.
std::string SingleByteForm(const quillo::NoteFile& file, quillo::LocaleText& locale) {
    std::u16string block = u"\r\n<quillo>";
    if (file.position) {
        const auto length = [](const std::optional<float>& twips) {
            return twips ? quillo::FormatSingle(*twips, u".") : std::u16string();
        };
        block += u"<position>" + length(file.position->left) + u"," + length(file.position->top) + u"," +
                 length(file.position->width) + u"," + length(file.position->height) + u"</position>";
    }
    if (file.appearance) block += u"<appearance>" + quillo::FormatAppearance(*file.appearance) + u"</appearance>";
    block += u"<reminder>" + quillo::FormatReminder(file.reminder) + u"</reminder>";
    if (file.kind == quillo::FileKind::StorageCopy) block += u"<nodelete></nodelete>";
    if (file.kind == quillo::FileKind::ProgramNamed) block += u"<tempfilename>" + file.path + u"</tempfilename>";
    if (file.kind == quillo::FileKind::OwnFile) block += u"<filename>" + file.path + u"</filename>";
    return locale.ToNarrow(file.text + block + u"</quillo>").value_or("");
}

bool NeedsMoreThanSingleBytes(const quillo::NoteFile& file, quillo::LocaleText& locale) {
    const std::string narrow = locale.ToNarrow(file.text).value_or("");
    return locale.FromNarrow(narrow) != file.text || quillo::FindTag(narrow, "<quillo>", 0) != std::string::npos ||
           quillo::FindTag(narrow, "</quillo>", 0) != std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view content(reinterpret_cast<const char*>(data), size);
    RequireNothingIsLost(content);

    quillo::FakeLocaleText locale;
    quillo::NoteFile file = quillo::ParseNoteFile(content, locale);
    // A path from a file comes back in the code page's form; a text that is not a date becomes no reminder.
    file.path = locale.ToLower(locale.FromNarrow(locale.ToNarrow(file.path).value_or("")));
    if (file.kind == quillo::FileKind::StorageCopy || file.path.find(u'<') != std::u16string::npos) {
        file.kind = quillo::FileKind::StorageCopy;
        file.path.clear();
    }
    if (file.kind == quillo::FileKind::OwnFile && file.path.empty()) file.kind = quillo::FileKind::StorageCopy;
    if (file.reminder && !file.reminder->when) file.reminder.reset();
    const std::optional<std::string> bytes = quillo::FormatNoteFile(file, locale);
    Require(bytes.has_value());
    const bool whole = NeedsMoreThanSingleBytes(file, locale);
    Require(whole == (*bytes != SingleByteForm(file, locale)));
    const quillo::NoteFile again = quillo::ParseNoteFile(*bytes, locale);
    const std::size_t lost = file.text.substr(0, 2) == u"\r\n" ? 2 : 0;
    Require(again.text == std::u16string_view(file.text).substr(lost));
    Require(again.appearance == file.appearance && again.reminder.has_value() == file.reminder.has_value());
    Require(again.position.has_value() == file.position.has_value());
    Require(again.kind == file.kind && again.path == file.path);

    // The same bytes again: writing what was read changes nothing.
    const std::optional<std::string> third = quillo::FormatNoteFile(again, locale);
    Require(third.has_value() &&
            quillo::ParseNoteFile(*third, locale).text ==
                std::u16string_view(again.text).substr(again.text.substr(0, 2) == u"\r\n" ? 2 : 0));
    return 0;
}
