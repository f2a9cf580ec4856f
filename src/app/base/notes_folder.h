#pragma once

#include <string>
#include <string_view>

namespace quillo {

class FileStore;
class LocaleText;
class Shell;

/// The folder of the note files, created if it is missing; "" if the system supplies no place for it.
[[nodiscard]] std::u16string PrepareNotesFolder(Shell& shell, FileStore& files, bool useRoamingProfile);

/// True if the path begins with the folder's path in any letter case. Intended: the end of the folder's name is not
/// checked, so files of a folder next to it whose name begins alike ("Notes of 2020") count too, and are not moved.
[[nodiscard]] bool IsInNotesFolder(std::u16string_view path, std::u16string_view notesFolder, LocaleText& locale);

}  // namespace quillo
