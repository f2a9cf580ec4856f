// A tag block may contain any bytes: reading them must not crash, and every value must be one that a note can have.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "notes/note_codec.h"
#include "testing/fake_locale_text.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillo::FakeLocaleText locale;
    quillo::NoteFile file;
    quillo::ReadTagText(locale.FromNarrow({reinterpret_cast<const char*>(data), size}), file, locale);
    if (file.position) {
        for (const auto& length :
             {file.position->left, file.position->top, file.position->width, file.position->height}) {
            Require(!length || std::isfinite(*length));
        }
    }
    if (file.appearance) {
        const std::u16string written = quillo::FormatAppearance(*file.appearance);
        Require(quillo::ParseAppearance(written, locale) == *file.appearance);
    }
    if (file.reminder && file.reminder->when) {
        const quillo::CivilTime time = quillo::ToCivilTime(*file.reminder->when);
        Require(time.year >= 100 && time.year <= 9999);
        Require(!quillo::FormatReminder(file.reminder).empty());
    }
    const std::u16string name = quillo::FileNameOf(file, u"C:\\a.qln", u"", locale);
    Require(file.kind != quillo::FileKind::OwnFile || name == u"C:\\a.qln");
    return 0;
}
