#pragma once

#include <string>
#include <string_view>

namespace quillo {

class FileStore;
class Shell;
struct Settings;

/// The extension of note files.
inline constexpr std::u16string_view kNoteExtension = u".qln";

/// Proposes file names for notes.
class NoteNames {
  public:
    NoteNames(FileStore& files, Shell& shell, const Settings& settings)
        : files_(files), shell_(shell), settings_(settings) {}

    /// A free full path ending in ".qln", made from the note's text, in the "Note folder"; "" if every possible name is
    /// taken.
    [[nodiscard]] std::u16string SuggestNoteFileName(std::u16string_view text);
    /// The same in another folder.
    [[nodiscard]] std::u16string SuggestNoteFileName(std::u16string_view text, std::u16string_view folder);
    /// A free full path in the system's temporary folder.
    [[nodiscard]] std::u16string MakeTemporaryFileName();

  private:
    [[nodiscard]] std::u16string FreeName(std::u16string_view base, std::u16string_view separator, int first);

    FileStore& files_;
    Shell& shell_;
    const Settings& settings_;
};

/// The target of a path ending in ".lnk" (any case); any other path, or a link without a target, unchanged.
[[nodiscard]] std::u16string ResolveShortcut(std::u16string_view path, Shell& shell);

}  // namespace quillo
