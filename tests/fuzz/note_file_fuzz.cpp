// Any bytes may stand in a note file: splitting them must neither fail nor lose text.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "notes/note_file.h"
#include "testing/fake_locale_text.h"
#include "util/byte_search.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view content(reinterpret_cast<const char*>(data), size);
    const quillo::NoteFileParts parts = quillo::SplitNoteFile(content);
    const std::string text = parts.JoinedText();
    if (!parts.tags) {
        Require(text == content);
        return 0;
    }
    Require(!parts.tags->empty());
    // Besides the root tags (17 bytes) at most two line breaks go.
    const std::size_t lost = size - text.size() - parts.tags->size();
    Require(lost == 17 || lost == 19 || lost == 21);

    // A text without a root tag of its own comes back from its file, but for a line break at its start.
    quillo::FakeLocaleText locale;
    if (quillo::FindTag(text, "<quillo>", 0) != std::string_view::npos) return 0;
    const std::string file =
        quillo::WriteNoteFile({locale.FromNarrow(text), {}, u"", u""}, quillo::FileKind::StorageCopy, u"", locale);
    const std::string again = quillo::SplitNoteFile(file).JoinedText();
    Require(again == (text.substr(0, 2) == "\r\n" ? text.substr(2) : text));
    return 0;
}
