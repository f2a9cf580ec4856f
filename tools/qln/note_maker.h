#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "notes/note_codec.h"
#include "options.h"

namespace quillo::qln {

/// The one way in which this program makes notes: a storage copy in the notes folder, whole from the first moment at
/// which the running program can see it.
class NoteMaker {
  public:
    explicit NoteMaker(const Session& session) : session_(session) {}

    /// Whether the notes folder has room for one more note; complains when not.
    [[nodiscard]] bool HasRoom();
    /// Stores the bytes of a note file under `name`, or under a new GUID where that is "" or taken. "" after a
    /// complaint when it cannot be written.
    [[nodiscard]] std::string Store(std::string_view bytes, const std::string& name = {});
    /// The same for a note.
    [[nodiscard]] std::string Store(const NoteFile& file);
    /// Shows the notes stored so far: the running program is told of them, or the user that they come at the next
    /// start.
    void Announce();

    [[nodiscard]] const std::vector<std::string>& Made() const { return made_; }

  private:
    const Session& session_;
    std::vector<std::string> made_;
};

/// The most notes that the program opens.
inline constexpr std::size_t kMostNotes = 50;

/// How many notes are in the notes folder.
[[nodiscard]] std::size_t CountNotes(const std::string& folder);

/// A text that came from outside, as a note holds it: pairs for line breaks. Nothing, with the reason in `error`, for
/// bytes that are not well-formed UTF-8, null characters and texts that the program would not take.
[[nodiscard]] std::optional<std::u16string> TextForNote(std::string_view bytes, std::string& error);

/// "2026-11-22-100000": names of dated copies.
[[nodiscard]] std::string DateForName(DaySerial now);
/// Makes a folder below `parent` whose name begins so; "" after a complaint.
[[nodiscard]] std::string MakeDatedFolder(Console& console, const std::string& parent, const std::string& name);
/// Copies a file byte for byte, with the time of its last change; complains and gives false when that fails.
[[nodiscard]] bool CopyWhole(Console& console, const std::string& from, const std::string& to);

}  // namespace quillo::qln
