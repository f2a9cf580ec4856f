#include "platform/styled_controls.h"

#include <gtest/gtest.h>

#include <string>

#include "note_form_fixture.h"
#include "platform/dialog_parts.h"
#include "platform/ui_timer.h"
#include "platform/win_user_notice.h"
#include "reminder_fixture.h"
#include "util/busy_flag.h"

namespace quillo::windows_tests {
namespace {

/// The file of the library whose code handles the messages of a class of windows, in small letters; "" if it has none.
std::wstring LibraryOf(HWND window) {
    const auto code = reinterpret_cast<const wchar_t*>(GetClassLongPtrW(window, GCLP_WNDPROC));
    constexpr DWORD kByAddress = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE module = nullptr;
    if (GetModuleHandleExW(kByAddress, code, &module) == 0) return {};
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), MAX_PATH));
    CharLowerW(path.data());
    return path;
}

/// Only the styled version of this library has standard controls; all others are the system's own.
bool HasStyle(HWND window) {
    return LibraryOf(window).find(L"comctl32.dll") != std::wstring::npos;
}

HWND PlainEdit(HWND parent) {
    return CreateWindowExW(0, L"EDIT", L"", WS_CHILD, 0, 0, 10, 10, parent, nullptr, ThisModule(), nullptr);
}

TEST(StyledControls, AreThoseThatAreCreatedWhileItLives) {
    const PlainWindow parent;
    EXPECT_FALSE(HasStyle(PlainEdit(parent.Handle())));
    {
        const StyledControls outer;
        EXPECT_TRUE(HasStyle(PlainEdit(parent.Handle())));
        { const StyledControls inner; }
        EXPECT_TRUE(HasStyle(PlainEdit(parent.Handle()))) << "the inner one has ended only itself";
    }
    EXPECT_FALSE(HasStyle(PlainEdit(parent.Handle())));
}

TEST(StyledControls, TheControlsOfADialogAreAmongThem) {
    const PlainWindow parent;
    for (const wchar_t* kind : {L"BUTTON", L"EDIT", L"COMBOBOX", L"STATIC", L"LISTBOX"}) {
        EXPECT_TRUE(HasStyle(CreateControl(parent.Handle(), 1, ControlKind{kind, 0}, u"", true))) << kind;
    }
}

TEST(StyledControls, TheButtonsOfAMessageBoxAreAmongThem) {
    BusyFlag busy;
    WinUserNotice notice(busy);
    bool styled = false;
    UiTimer answer([&] {
        HWND box = FindWindowW(L"#32770", L"Quillo");
        if (box == nullptr || IsWindowVisible(box) == 0) return;
        answer.Stop();
        styled = HasStyle(FindWindowExW(box, nullptr, L"Button", nullptr));
        PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
    });
    answer.Start(30);
    notice.Inform(u"Look.");
    EXPECT_TRUE(styled);
}

TEST_F(NoteFormTest, ItsTextBoxNeedsNoLibraryOfStyledControls) {
    Show();
    EXPECT_FALSE(HasStyle(Box()));
}

}  // namespace
}  // namespace quillo::windows_tests
