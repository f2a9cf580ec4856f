#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "util/geometry.h"

namespace quillo {

/// Kept in storage copies and attachments: a file with this text survives being opened. Looked for case-sensitively.
inline constexpr std::string_view kKeepMarker = "<nodelete>";

/// What the fourth element of the tag block says a file is.
enum class FileKind {
    StorageCopy,   ///< <nodelete></nodelete>
    ProgramNamed,  ///< <tempfilename>path</tempfilename>
    OwnFile,       ///< <filename>path</filename>
};

/// The first stage of reading: views into the content that was split. The text is `head` followed by `tail`.
struct NoteFileParts {
    std::string_view head;
    std::string_view tail;                 ///< what follows the tag block; usually empty
    std::optional<std::string_view> tags;  ///< between the root tags; nothing for a plain text file

    /// Head and tail joined.
    [[nodiscard]] std::string JoinedText() const;
};

/// Splits a file's narrow content at its tag block. Never copies or folds the text; any input is safe.
[[nodiscard]] NoteFileParts SplitNoteFile(std::string_view content);

/// Everything that goes into a note file besides what the file is.
struct NoteFileContent {
    std::u16string text;
    TwipsRect position;
    std::u16string appearance;
    std::u16string reminder;
};

class LocaleText;

/// The bytes of a note file in the ANSI code page. `path` is the file's own full path, used unless it is a storage
/// copy.
[[nodiscard]] std::string WriteNoteFile(const NoteFileContent& content, FileKind kind, std::u16string_view path,
                                        LocaleText& locale);

}  // namespace quillo
