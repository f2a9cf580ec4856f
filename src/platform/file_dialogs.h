#pragma once

#include <string>
#include <string_view>

#include "platform/win32.h"

namespace quillo {

/// What a file dialog shows and asks for.
struct FileDialogPlan {
    std::u16string_view title;
    std::u16string_view filter;  ///< captions and patterns in turn, with "|" between them
    std::u16string_view defaultExtension;
    DWORD flags = 0;               ///< OFN_...
    std::u16string_view folder{};  ///< where the dialog starts; "" leaves that to the system
};

/// The filter as the system wants it: a NUL for each "|", and two at its end.
[[nodiscard]] std::u16string SystemFilter(std::u16string_view filter);

/// The system's dialog for a file to be written, modal to `owner`. The full path chosen; "" when the user canceled or
/// the dialog was ended. Messages run meanwhile: the owner and what it belongs to may be gone afterwards.
[[nodiscard]] std::u16string BrowseForFileToSave(HWND owner, const FileDialogPlan& plan);

/// The same for a file that is there.
[[nodiscard]] std::u16string BrowseForFileToOpen(HWND owner, const FileDialogPlan& plan);

/// Cancels the system's dialogs that belong to `owner`, to be called before it is destroyed.
void CancelDialogsOf(HWND owner);

}  // namespace quillo
