#pragma once

#include <string>

namespace quillo {

class OpenNotes;
class Random;

/// The key of a new note: a random number from 0 to 1,000,000 in upper-case hexadecimal digits, one that no open note
/// has. Two notes with one key would be one note to everything that finds them by it.
[[nodiscard]] std::u16string NewNoteIdentifier(const OpenNotes& notes, Random& random);

}  // namespace quillo
