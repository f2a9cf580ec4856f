#pragma once

#include <cstddef>
#include <string>

#include "util/color_word.h"
#include "util/day_serial.h"

namespace quillo {

/// Whether a note is on the desktop; the numbers are those in the note file.
enum class WindowState : int { Shown = 0, Hidden = 1, Minimized = 2 };

/// The maximum length of a note's text, in UTF-16 units: typing, pasting, dropping or reading more is refused, so that
/// every note that can be created can also be opened again.
inline constexpr std::size_t kMostNoteCharacters = 4'000'000;

/// Whether a note of `present` characters can take `added` more.
[[nodiscard]] constexpr bool FitsInNote(std::size_t present, std::size_t added) {
    return present <= kMostNoteCharacters && added <= kMostNoteCharacters - present;
}

/// The data of one note. Its text, rectangle and visibility are in its window.
struct Note {
    bool LargeText = false;
    bool OwnColors = false;  ///< false: the three colors are taken from the settings
    ColorWord NoteColor;
    ColorWord BorderColor;
    ColorWord TextColor;
    bool ReminderSet = false;
    DaySerial ReminderTime;
    bool Pinned = false;         ///< always on top
    bool Changed = false;        ///< differs from its storage copy; cleared only by PersistNote
    std::u16string StoragePath;  ///< the storage copy in the notes folder; empty until first saved
    std::u16string FileName;     ///< the note's own file outside the notes folder, or empty
    std::u16string NoteKey;      ///< its key among the open notes
};

}  // namespace quillo
