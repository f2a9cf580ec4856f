#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/locale_text.h"

namespace quillo::qln {

enum class Fault {
    Empty,           ///< no bytes: the program would make a note of the file's name
    Nulls,           ///< null characters: the program takes it for no text
    Torn,            ///< the tag block begins and does not end
    DamagedUnicode,  ///< the whole text is kept, but does not fit the text beside it
    TooLarge,        ///< more text than a note can have
    Doubled,         ///< byte for byte another note
    Leftover,        ///< what an interrupted write has left behind
};

/// What is wrong with one file, with the bytes that were looked at.
struct Finding {
    std::string path;
    Fault fault = Fault::Empty;
    std::string bytes;
    std::string other;  ///< of a doubled note: the one that it doubles
};

/// Whether a file of that name may be the rest of an interrupted write.
[[nodiscard]] bool IsLeftoverName(std::string_view name);

/// What is wrong with the bytes of a note alone; nothing for a sound note and for any plain text.
[[nodiscard]] std::optional<Fault> Diagnose(std::string_view bytes, LocaleText& locale);

/// The bytes of the note as they should be; nothing for a fault that is not mended in the file itself.
[[nodiscard]] std::optional<std::string> Mended(const Finding& finding, LocaleText& locale);

[[nodiscard]] const char* Describe(Fault fault);

}  // namespace quillo::qln
