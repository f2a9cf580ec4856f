#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "notes/note_codec.h"
#include "options.h"

namespace quillo::qln {

/// The one way in which this program creates notes: a storage copy in the notes folder, complete from the first moment
/// at which the running program can see it.
class NoteMaker {
  public:
    explicit NoteMaker(const Session& session) : session_(session) {}

    /// Whether the notes folder can take one more note; reports an error if not.
    [[nodiscard]] bool CanMakeNote();
    /// Stores the bytes of a note file under `name`, or under a new GUID if that is "" or taken. "" after an error
    /// message if it cannot be written.
    [[nodiscard]] std::string Store(std::string_view bytes, const std::string& name = {});
    /// The same for a note.
    [[nodiscard]] std::string Store(const NoteFile& file);
    /// Announces the notes stored so far: to the running program, which shows them, or to the user, because they appear
    /// at the next start.
    void Announce();

    [[nodiscard]] const std::vector<std::string>& Made() const { return made_; }

  private:
    const Session& session_;
    std::vector<std::string> made_;
};

/// The maximum number of notes that the program opens.
inline constexpr std::size_t kMostNotes = 50;

/// How many notes are in the notes folder.
[[nodiscard]] std::size_t CountNotes(const std::string& folder);

/// Text from outside in the form that a note holds: CR LF line breaks. Nothing, with the reason in `error`, for bytes
/// that are not well-formed UTF-8, null characters and texts that the program would refuse.
[[nodiscard]] std::optional<std::u16string> TextForNote(std::string_view bytes, std::string& error);

/// "2026-11-22-100000": names of dated copies.
[[nodiscard]] std::string DateForName(DaySerial now);
/// Creates a folder below `parent` with that start of a name; "" after an error message.
[[nodiscard]] std::string MakeDatedFolder(Console& console, const std::string& parent, const std::string& name);
/// Copies a file byte for byte, with the time of its last change; reports an error and returns false on failure.
[[nodiscard]] bool CopyWhole(Console& console, const std::string& from, const std::string& to);

}  // namespace quillo::qln
