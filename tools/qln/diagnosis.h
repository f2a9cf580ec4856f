#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/locale_text.h"

namespace quillo::qln {

enum class Fault {
    Empty,           ///< no bytes: the program would create a note with the file's name
    Nulls,           ///< null characters: the program does not treat the file as text
    Torn,            ///< the tag block begins and does not end
    DamagedUnicode,  ///< the file has the whole text, but it does not match the text beside it
    TooLarge,        ///< more text than a note can have
    Doubled,         ///< identical to another note, byte for byte
    Leftover,        ///< the remainder of an interrupted write
};

/// The fault of one file, with the bytes that were examined.
struct Finding {
    std::string path;
    Fault fault = Fault::Empty;
    std::string bytes;
    std::string other;  ///< of a duplicate: the other note
};

/// Whether a file with that name may be the remainder of an interrupted write.
[[nodiscard]] bool IsLeftoverName(std::string_view name);

/// The fault in the bytes of a note; nothing for a sound note or any plain text.
[[nodiscard]] std::optional<Fault> Diagnose(std::string_view bytes, LocaleText& locale);

/// The corrected bytes of the note; nothing for a fault that is not repaired in the file itself.
[[nodiscard]] std::optional<std::string> Mended(const Finding& finding, LocaleText& locale);

[[nodiscard]] const char* Describe(Fault fault);

}  // namespace quillo::qln
