#include "app/base/notes_folder.h"

#include "ports/file_store.h"
#include "ports/locale_text.h"
#include "ports/shell.h"
#include "util/ignore.h"

namespace quillo {

std::u16string PrepareNotesFolder(Shell& shell, FileStore& files, bool useRoamingProfile) {
    std::u16string folder;
    if (!useRoamingProfile) folder = shell.FolderPath(SpecialFolder::LocalApplicationData);
    if (folder.empty()) folder = shell.FolderPath(SpecialFolder::RoamingApplicationData);
    if (folder.empty()) folder = shell.FolderPath(SpecialFolder::Documents);
    if (folder.empty()) return {};
    for (const std::u16string_view name : {u"\\Marrowind", u"\\Notes"}) {
        folder += name;
        Ignore(files.CreateFolder(folder),
               "a folder that cannot be made leaves the notes unsaved, not the program down");
    }
    return folder;
}

bool IsInNotesFolder(std::u16string_view path, std::u16string_view notesFolder, LocaleText& locale) {
    return locale.ToLower(path.substr(0, notesFolder.size())) == locale.ToLower(notesFolder);
}

}  // namespace quillo
