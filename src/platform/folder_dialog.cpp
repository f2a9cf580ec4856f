#include "platform/folder_dialog.h"

#include <array>

#include "platform/com_scope.h"
#include "platform/styled_controls.h"
#include "platform/wide.h"

// After windows.h.
#include <shlobj.h>

namespace quillo {
namespace {

/// `data` is the path of the initial folder, null-terminated.
int CALLBACK SelectStart(HWND browser, UINT message, LPARAM /*wParam*/, LPARAM data) noexcept {
    if (message == BFFM_INITIALIZED) SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, data);
    return 0;
}

}  // namespace

std::u16string AskForFolder(HWND owner, std::u16string_view prompt, std::u16string_view folder) {
    const ComScope com;
    const StyledControls styled;
    const std::u16string title(prompt);
    const std::u16string start(folder);
    BROWSEINFOW browse{};
    browse.hwndOwner = owner;
    browse.lpszTitle = Wide(title);
    browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    browse.lpfn = &SelectStart;
    browse.lParam = reinterpret_cast<LPARAM>(Wide(start));
    PIDLIST_ABSOLUTE list = SHBrowseForFolderW(&browse);
    if (list == nullptr) return {};
    std::array<wchar_t, MAX_PATH + 1> path{};
    const bool found = SHGetPathFromIDListW(list, path.data()) != 0;
    CoTaskMemFree(list);
    return std::u16string(found ? FromWide(path.data()) : std::u16string_view());
}

}  // namespace quillo
