#pragma once

#include <string>
#include <string_view>

#include "platform/win32.h"

namespace quillo {

/// The content of a file dialog.
struct FileDialogPlan {
    std::u16string_view title;
    std::u16string_view filter;  ///< captions and patterns alternately, separated by "|"
    std::u16string_view defaultExtension;
    DWORD flags = 0;               ///< OFN_...
    std::u16string_view folder{};  ///< where the dialog starts; "" lets the system decide
};

/// The filter in the system's form: a NUL for each "|", and two at its end.
[[nodiscard]] std::u16string SystemFilter(std::u16string_view filter);

/// The system's dialog for a file to be written, modal to `owner`. The full path chosen; "" if the user canceled or the
/// dialog was ended. Messages are pumped meanwhile: the owner and its object may be destroyed afterwards.
[[nodiscard]] std::u16string BrowseForFileToSave(HWND owner, const FileDialogPlan& plan);

/// The same for an existing file. The dialog starts in the folder of the file `current`, which may be "".
[[nodiscard]] std::u16string BrowseForFileToOpen(HWND owner, std::u16string_view title, std::u16string_view filter,
                                                 std::u16string_view current);

/// Cancels the system's dialogs that belong to `owner`; called before it is destroyed.
void CancelDialogsOf(HWND owner);

}  // namespace quillo
