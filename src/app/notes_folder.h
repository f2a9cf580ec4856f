#pragma once

#include <string>
#include <string_view>

namespace quillo {

class FileStore;
class LocaleText;
class Shell;

/// The folder that holds the note files, created where it is missing; "" when the system names no place for it.
[[nodiscard]] std::u16string PrepareNotesFolder(Shell& shell, FileStore& files, bool useRoamingProfile);

/// True when the path begins with the folder's path in any letter case. Intended: nothing marks the folder's end, so
/// the files of a folder beside it whose name begins alike ("Notes of 2020") count too, and stay where they are.
[[nodiscard]] bool IsInNotesFolder(std::u16string_view path, std::u16string_view notesFolder, LocaleText& locale);

}  // namespace quillo
