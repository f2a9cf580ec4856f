#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "notes/note.h"
#include "util/color_word.h"
#include "util/day_serial.h"
#include "util/geometry.h"

namespace quillo {

class LocaleText;

/// Storage copies and attachments contain this text, which keeps them from being deleted when opened. The search is
/// case-sensitive.
inline constexpr std::string_view kKeepMarker = "<nodelete>";

/// What a file is, according to the fourth element of the tag block.
enum class FileKind {
    StorageCopy,   ///< <nodelete></nodelete>, or no element that names the file
    ProgramNamed,  ///< <tempfilename>path</tempfilename>: the program chose the name
    OwnFile,       ///< <filename>path</filename>: the user chose the name
};

/// The window's rectangle in twips. A number that could not be read is absent and changes nothing.
struct NotePosition {
    std::optional<float> left;
    std::optional<float> top;
    std::optional<float> width;
    std::optional<float> height;
    friend bool operator==(const NotePosition&, const NotePosition&) = default;
};

/// Returns `place`, with the numbers of `position` that are present instead of its own.
[[nodiscard]] TwipsRect MovedTo(const TwipsRect& place, const NotePosition& position);

/// The look of a note. A field that could not be read is absent and changes nothing.
struct NoteAppearance {
    std::optional<bool> largeText;
    std::optional<bool> ownColors;
    std::optional<ColorWord> noteColor;
    std::optional<ColorWord> borderColor;
    std::optional<ColorWord> textColor;
    std::optional<WindowState> state;
    friend bool operator==(const NoteAppearance&, const NoteAppearance&) = default;
};

/// `when` is absent if the field is a text that is not a date: the note then has no reminder.
struct NoteReminder {
    std::optional<DaySerial> when;
    friend bool operator==(const NoteReminder&, const NoteReminder&) = default;
};

/// Everything that a note file holds. An absent element changes nothing in the new note.
struct NoteFile {
    std::u16string text;
    std::optional<NotePosition> position;
    std::optional<NoteAppearance> appearance;
    std::optional<NoteReminder> reminder;
    FileKind kind = FileKind::StorageCopy;
    std::u16string path;     ///< in lower case when read; "" if the element cannot be used
    bool hasTags = false;    ///< the file has a tag block; set by the reader
    bool keepsFile = false;  ///< the file contains kKeepMarker; set by the reader
    friend bool operator==(const NoteFile&, const NoteFile&) = default;
};

/// Reads a file's content. Any bytes are safe; everything outside the tag block is text.
[[nodiscard]] NoteFile ParseNoteFile(std::string_view bytes, LocaleText& locale);

/// The bytes of a note file in the ANSI code page, with the elements that are present. Nothing if the text cannot be
/// converted; that is never a reason to write an empty file. Ignores hasTags and keepsFile.
[[nodiscard]] std::optional<std::string> FormatNoteFile(const NoteFile& file, LocaleText& locale);

/// Adds to `file` the content of a tag text: the text between the root tags.
void ReadTagText(std::u16string_view tagText, NoteFile& file, LocaleText& locale);

/// The FileName of a note opened from `openedPath` (or from no file: ""); `current` if the file does not say. A file
/// that is still where the program created it for its note is not the note's own file.
[[nodiscard]] std::u16string FileNameOf(const NoteFile& file, std::u16string_view openedPath,
                                        std::u16string_view current, LocaleText& locale);

/// "False,False,14155262,3723262,0,1"; an absent field is empty.
[[nodiscard]] std::u16string FormatAppearance(const NoteAppearance& appearance);
[[nodiscard]] NoteAppearance ParseAppearance(std::u16string_view text, LocaleText& locale);

/// "#" and the day serial number, or "".
[[nodiscard]] std::u16string FormatReminder(const std::optional<NoteReminder>& reminder);
/// Nothing for an empty text, which leaves the reminder unchanged.
[[nodiscard]] std::optional<NoteReminder> ParseReminder(std::u16string_view text, LocaleText& locale);

/// The first stage of reading: views into the split content. The text is `head` followed by `tail`.
struct NoteFileParts {
    std::string_view head;
    std::string_view tail;                 ///< the text after the tag block; usually empty
    std::optional<std::string_view> tags;  ///< between the root tags; nothing for a plain text file

    /// Head and tail joined.
    [[nodiscard]] std::string JoinedText() const;
};

/// Splits a file's narrow content at its first tag block. Never copies or folds the text; any input is safe.
[[nodiscard]] NoteFileParts SplitNoteFile(std::string_view content);

}  // namespace quillo
