#include "platform/file_dialogs.h"

#include "platform/late_library.h"
#include "platform/styled_controls.h"
#include "platform/wide.h"
#include "util/path_text.h"

// After windows.h.
#include <commdlg.h>

#include <algorithm>
#include <cwchar>

namespace quillo {
namespace {

/// Restores the current folder: a file dialog changes it to the folder that the user was in, which then could not be
/// deleted.
class CurrentFolderScope {
  public:
    CurrentFolderScope() {
        before_.resize(GetCurrentDirectoryW(0, nullptr));
        before_.resize(GetCurrentDirectoryW(static_cast<DWORD>(before_.size()), WideBuffer(before_)));
    }
    CurrentFolderScope(const CurrentFolderScope&) = delete;
    CurrentFolderScope& operator=(const CurrentFolderScope&) = delete;
    ~CurrentFolderScope() { SetCurrentDirectoryW(Wide(before_)); }

  private:
    std::u16string before_;
};

bool IsDialog(HWND window) {
    constexpr wchar_t kDialogClass[] = L"#32770";
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    return std::wcscmp(name, kDialogClass) == 0;
}

BOOL CALLBACK CancelDialogOf(HWND window, LPARAM owner) {
    if (GetWindow(window, GW_OWNER) != reinterpret_cast<HWND>(owner) || !IsDialog(window)) return TRUE;
    CancelDialogsOf(window);  // the dialog's own question, such as whether to replace a file
    SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
    // A question without a Cancel button ignores that.
    if (IsWindowVisible(window) != 0) EndDialog(window, IDCANCEL);
    return TRUE;
}

using FileDialogFunction = LateFunction<BOOL WINAPI(OPENFILENAMEW*)>;

std::u16string Browse(FileDialogFunction& show, HWND owner, const FileDialogPlan& plan) {
    const StyledControls styled;  // also for the library that has the dialog
    if (show.Get() == nullptr) return {};
    constexpr std::size_t kLongestPath = 32'768;
    std::u16string path(kLongestPath, u'\0');
    const std::u16string title(plan.title);
    const std::u16string filter = SystemFilter(plan.filter);
    const std::u16string extension(plan.defaultExtension);
    const std::u16string start(plan.folder);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = Wide(filter);
    dialog.lpstrFile = WideBuffer(path);
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrTitle = Wide(title);
    dialog.lpstrDefExt = Wide(extension);
    dialog.lpstrInitialDir = start.empty() ? nullptr : Wide(start);
    dialog.Flags = plan.flags;
    const CurrentFolderScope folder;
    if (show.Get()(&dialog) == 0) return {};
    path.resize(std::min(path.find(u'\0'), path.size()));
    return path;
}

}  // namespace

std::u16string SystemFilter(std::u16string_view filter) {
    std::u16string text(filter);
    std::replace(text.begin(), text.end(), u'|', u'\0');
    text.append(2, u'\0');
    return text;
}

std::u16string BrowseForFileToSave(HWND owner, const FileDialogPlan& plan) {
    static FileDialogFunction getSaveFileName(L"comdlg32.dll", "GetSaveFileNameW");
    return Browse(getSaveFileName, owner, plan);
}

std::u16string BrowseForFileToOpen(HWND owner, std::u16string_view title, std::u16string_view filter,
                                   std::u16string_view current) {
    static FileDialogFunction getOpenFileName(L"comdlg32.dll", "GetOpenFileNameW");
    FileDialogPlan plan;
    plan.title = title;
    plan.filter = filter;
    plan.flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY;
    plan.folder = FolderOfPath(current);
    return Browse(getOpenFileName, owner, plan);
}

void CancelDialogsOf(HWND owner) {
    EnumThreadWindows(GetCurrentThreadId(), &CancelDialogOf, reinterpret_cast<LPARAM>(owner));
}

}  // namespace quillo
