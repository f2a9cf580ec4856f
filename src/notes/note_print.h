#pragma once

#include <string>
#include <string_view>

#include "ports/printer.h"
#include "util/color_word.h"
#include "util/day_serial.h"

namespace quillo {

class LocaleText;
struct FontSetting;
struct Note;

/// What is printed of a note.
struct PrintedNote {
    std::u16string text;
    std::u16string dateLine;
    PrintFont font;  ///< of the text; heading, date line and footer are its sisters in other sizes
    ColorWord rule;
};

/// `text` and `font` are those of the note's text box. Large text prints as any other.
[[nodiscard]] PrintedNote MakePrintedNote(std::u16string_view text, const Note& note, const FontSetting& font,
                                          DaySerial now, LocaleText& locale);

/// How the printer's queue names the note: by its first words.
[[nodiscard]] std::u16string PrintDocumentName(std::u16string_view text);

/// Lays the note out on as many pages as it takes, and finishes the job.
[[nodiscard]] PrintOutcome PrintPages(PrintJob& job, const PrintedNote& note);

}  // namespace quillo
