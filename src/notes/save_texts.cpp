#include "notes/save_texts.h"

namespace quillo {

std::u16string_view SaveProblemText(FileError error) {
    switch (error) {
        case FileError::None:
            return {};
        case FileError::DiskFull:
            return u"This note is not saved, because the disk is full.  Quillo tries again every ten seconds.";
        case FileError::NoPermission:
            return u"This note is not saved, because Windows does not let Quillo write to the notes folder.  Quillo "
                   u"tries again every ten seconds.";
        case FileError::FolderMissing:
            return u"This note is not saved, because the notes folder is missing.  Quillo tries again every ten "
                   u"seconds.";
        case FileError::InUse:
            return u"This note is not saved, because another program is using its file.  Quillo tries again every ten "
                   u"seconds.";
        case FileError::NotFound:
        case FileError::NameTaken:
        case FileError::TooLarge:
        case FileError::Failed:
            break;
    }
    return u"This note could not be saved.  Quillo tries again every ten seconds.";
}

}  // namespace quillo
