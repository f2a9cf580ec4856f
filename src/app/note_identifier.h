#pragma once

#include <string>

namespace quillo {

class OpenNotes;
class Random;

/// The key of a new note: a random number from 0 to 1,000,000 in upper-case hexadecimal digits that no open note has.
/// Notes are found by their keys, so two notes with one key would be treated as one.
[[nodiscard]] std::u16string NewNoteIdentifier(const OpenNotes& notes, Random& random);

}  // namespace quillo
