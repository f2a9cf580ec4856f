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

/// The parts of a note that are printed.
struct PrintedNote {
    std::u16string text;
    std::u16string dateLine;
    PrintFont font;  ///< of the text; heading, date line and footer use it in other sizes
    ColorWord rule;
};

/// `text` and `font` are those of the note's text box. Large text is printed in the normal size.
[[nodiscard]] PrintedNote MakePrintedNote(std::u16string_view text, const Note& note, const FontSetting& font,
                                          DaySerial now, LocaleText& locale);

/// The note's name in the printer's queue: its first words.
[[nodiscard]] std::u16string PrintDocumentName(std::u16string_view text);

/// Prints the note on as many pages as necessary, and finishes the job.
[[nodiscard]] PrintOutcome PrintPages(PrintJob& job, const PrintedNote& note);

}  // namespace quillo
