#pragma once

#include <string>
#include <string_view>

#include "notes/note_codec.h"
#include "testing/fake_locale_text.h"

namespace quillo::codec_tests {

/// A note file with every element.
inline NoteFile FileOf(std::u16string_view text, FileKind kind = FileKind::StorageCopy,
                       std::u16string_view path = u"") {
    NoteFile file;
    file.text = text;
    file.position = NotePosition{7200, 3600, 3000, 2400};
    file.appearance =
        NoteAppearance{false, false, ColorWord{14155262}, ColorWord{3723262}, ColorWord{0}, WindowState::Shown};
    file.reminder = NoteReminder{DaySerial{45123.75}};
    file.kind = kind;
    file.path = path;
    return file;
}

inline std::string Written(const NoteFile& file) {
    FakeLocaleText locale;
    return FormatNoteFile(file, locale).value_or("(refused)");
}

inline NoteFile Read(std::string_view bytes) {
    FakeLocaleText locale;
    return ParseNoteFile(bytes, locale);
}

inline NoteFile ReadTags(std::u16string_view tagText) {
    FakeLocaleText locale;
    NoteFile file;
    ReadTagText(tagText, file, locale);
    return file;
}

}  // namespace quillo::codec_tests
