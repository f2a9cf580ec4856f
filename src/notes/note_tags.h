#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "notes/note.h"
#include "util/geometry.h"

namespace quillo {

class LocaleText;

/// The elements of a tag block that could be used, each as text in lower case.
struct TagElements {
    std::optional<std::u16string> position;
    std::optional<std::u16string> reminder;
    std::optional<std::u16string> appearance;
    std::optional<std::u16string> filename;
    std::optional<std::u16string> tempfilename;
    bool namesFile = false;  ///< the opening tag <filename> occurs, usable or not
};

/// Finds the elements in a tag text: blanks trimmed, lower case, root tags treated as they stand.
[[nodiscard]] TagElements FindTagElements(std::u16string_view tagText, LocaleText& locale);

/// The rectangle of a position element; entries that cannot be converted keep those of `current`, missing ones are 0.
[[nodiscard]] TwipsRect ReadPosition(std::u16string_view text, const TwipsRect& current, LocaleText& locale);

/// The FileName that a note gets from its tags; `current` when they name none.
[[nodiscard]] std::u16string ReadFileName(const TagElements& tags, std::u16string_view openedPath,
                                          std::u16string_view current, LocaleText& locale);

/// "False,False,14155262,3723262,0,1"
[[nodiscard]] std::u16string WriteAppearance(const Note& note, WindowState state);
/// Applies the first five fields to the note and returns the absolute value of the sixth: 0 to 2 are window states,
/// nothing when it cannot be converted, any other number changes nothing.
[[nodiscard]] std::optional<int> ReadAppearance(std::u16string_view text, Note& note, LocaleText& locale);

/// "" or "#" and the day serial number.
[[nodiscard]] std::u16string WriteReminder(const Note& note);
void ReadReminder(std::u16string_view text, Note& note, LocaleText& locale);

}  // namespace quillo
