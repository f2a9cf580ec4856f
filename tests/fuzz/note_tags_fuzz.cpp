// Any bytes may stand in a tag block: reading them must not fail, and what was read can be written.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "notes/note_tags.h"
#include "testing/fake_locale_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillo::FakeLocaleText locale;
    const std::u16string text = locale.FromNarrow({reinterpret_cast<const char*>(data), size});
    const quillo::TagElements tags = quillo::FindTagElements(text, locale);
    quillo::Note note;
    if (tags.position) {
        const quillo::TwipsRect place = quillo::ReadPosition(*tags.position, {1, 2, 3, 4}, locale);
        if (!std::isfinite(place.left + place.top) && std::fabs(place.left) < 1e38F && std::fabs(place.top) < 1e38F) {
            std::abort();
        }
    }
    if (tags.appearance) {
        const auto state = quillo::ReadAppearance(*tags.appearance, note, locale);
        if (state && *state < 0) std::abort();
        const std::u16string written = quillo::WriteAppearance(note, quillo::WindowState::Shown);
        quillo::Note again;
        static_cast<void>(quillo::ReadAppearance(written, again, locale));
        if (quillo::WriteAppearance(again, quillo::WindowState::Shown) != written) std::abort();
    }
    if (tags.reminder) {
        quillo::ReadReminder(*tags.reminder, note, locale);
        const quillo::CivilTime time = quillo::ToCivilTime(note.ReminderTime);
        if (time.year < 100 || time.year > 9999 || quillo::WriteReminder(note).empty() == note.ReminderSet)
            std::abort();
    }
    const std::u16string name = quillo::ReadFileName(tags, u"C:\\a.qln", u"", locale);
    if (tags.namesFile && name != u"C:\\a.qln") std::abort();
    return 0;
}
