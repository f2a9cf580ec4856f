#include "install_fixture.h"

#include "harness/user_path.h"
#include "harness/window_text.h"
#include "version.h"

// After windows.h.
#include <commctrl.h>
#include <objbase.h>
#include <shlobj.h>

namespace quillo::e2e {
namespace {

using ::testing::HasSubstr;

std::wstring Version() {
    const std::string version = QUILLO_VERSION_TEXT;
    return {version.begin(), version.end()};
}

/// Target and key of a shell link; the key is 0 if it has none.
struct Link {
    std::filesystem::path target;
    WORD hotkey = 0;
};
Link ReadLink(const std::filesystem::path& path) {
    Link link;
    EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    IShellLinkW* shellLink = nullptr;
    IPersistFile* file = nullptr;
    if (SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                   reinterpret_cast<void**>(&shellLink))) &&
        SUCCEEDED(shellLink->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file))) &&
        SUCCEEDED(file->Load(path.c_str(), STGM_READ))) {
        wchar_t target[MAX_PATH] = L"";
        shellLink->GetPath(target, MAX_PATH, nullptr, 0);
        shellLink->GetHotkey(&link.hotkey);
        link.target = target;
    }
    if (file != nullptr) file->Release();
    if (shellLink != nullptr) shellLink->Release();
    CoUninitialize();
    return link;
}

/// A complete first installation.
class Installing : public InstallTest {};

TEST_F(Installing, PutsTheProgramInPlaceAndStartsIt) {
    Profile().AddNote(L"note.qln", NoteFile{"mine"}.Bytes());
    Install(1);
    EXPECT_EQ(RunningFile(), Folder() / L"quillo.exe");
    EXPECT_FALSE(IsNew());
    ExpectNoLeftovers();
    EXPECT_EQ(Profile().RunValue(), Installed(L"quillo.exe")) << "which the program itself has written";
    EXPECT_EQ(Start(L"\"" + Installed(L"quillo-new.exe") + L"\"").ExitCode(), 0U);
    EXPECT_TRUE(ShowsNotes(2));
}

TEST_F(Installing, IntoAnEmptyProfileStartsAFirstRun) {
    RegDeleteTreeW(HKEY_CURRENT_USER, kSettingsKey);
    ASSERT_EQ(Setup(OldSetup()), 0U);
    EXPECT_TRUE(Eventually([&] { return Profile().HasValue(L"Shown Help"); }));
    EXPECT_TRUE(ShowsNotes(0));
    EXPECT_TRUE(Eventually([&] { return FolderExists(Profile().NotesFolder()); }));
}

TEST_F(Installing, AddsTheFolderToThePathAndRemovingDeletesOnlyThatEntry) {
    const UserPath restored;
    const UserPath::Value before{L"%USERPROFILE%\\bin;C:\\tools", REG_EXPAND_SZ};
    UserPath::Write(before);
    const UserPath::Value with{before.text + L";" + Folder().wstring(), REG_EXPAND_SZ};
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    EXPECT_TRUE(UserPath::Read() == with);
    ASSERT_EQ(Setup(NewSetup(), L"/NOSTART"), 0U);
    EXPECT_TRUE(UserPath::Read() == with) << "an update adds no second entry";
    Remove();
    EXPECT_TRUE(UserPath::Read() == before);
}

TEST_F(Installing, DoesNotChangeThePathWhenToldNotTo) {
    const UserPath restored;
    const UserPath::Value before{L"C:\\tools", REG_SZ};
    UserPath::Write(before);
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART /NOPATH"), 0U);
    EXPECT_TRUE(UserPath::Read() == before);
    ASSERT_EQ(Setup(NewSetup(), L"/NOSTART"), 0U);
    EXPECT_TRUE(UserPath::Read() == before) << "the choice is kept";
}

TEST_F(Installing, IsInTheListOfInstalledApps) {
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    EXPECT_EQ(UserText(kUninstallKey, L"DisplayName"), L"Quillo");
    EXPECT_EQ(UserText(kUninstallKey, L"DisplayVersion"), Version());
    EXPECT_EQ(UserText(kUninstallKey, L"Publisher"), L"Marrowind");
    EXPECT_EQ(UserText(kUninstallKey, L"DisplayIcon"), Installed(L"quillo.exe") + L",0");
    EXPECT_EQ(UserText(kUninstallKey, L"UninstallString"), L"\"" + Installed(L"uninstall.exe") + L"\"");
    EXPECT_EQ(UserText(kUninstallKey, L"QuietUninstallString"), L"\"" + Installed(L"uninstall.exe") + L"\" /S");
    std::uintmax_t bytes = 0;
    for (const std::wstring& file : ShippedFiles()) bytes += std::filesystem::file_size(Installed(file));
    EXPECT_EQ(UserNumber(kUninstallKey, L"EstimatedSize"), (bytes + 1023) / 1024);
    EXPECT_EQ(UserText(kAppIdKey, L"DisplayName"), L"Quillo");
    EXPECT_EQ(UserText(kAppIdKey, L"IconUri"), Installed(L"Quillo.png"));
    EXPECT_TRUE(FileExists(Installed(L"Quillo.png")));
    EXPECT_EQ(FindChannel(), nullptr) << "it was not to be started";
}

TEST_F(Installing, OpensNoteFilesByTheRegisteredCommand) {
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    EXPECT_EQ(UserText(kExtensionKey, L"PerceivedType"), L"text");
    EXPECT_EQ(UserText(kExtensionKey, L"Content Type"), L"text/plain");
    EXPECT_TRUE(UserText(std::wstring(kExtensionKey) + L"\\OpenWithProgids", L"Quillo.Note"));
    const std::wstring type = UserText(kExtensionKey, L"").value_or(L"");
    EXPECT_EQ(type, L"Quillo.Note");
    EXPECT_EQ(UserText(L"Software\\Classes\\" + type, L""), L"Quillo note");
    EXPECT_EQ(UserText(L"Software\\Classes\\" + type + L"\\DefaultIcon", L""), Installed(L"quillo.exe") + L",-102");

    std::wstring command = UserText(L"Software\\Classes\\" + type + L"\\shell\\open\\command", L"").value_or(L"");
    const std::size_t place = command.find(L"%1");
    ASSERT_NE(place, std::wstring::npos);
    const std::wstring path = Outside() / L"a \u00E4 note.qln";
    WriteBytes(path, NoteFile{"with a double click"}.Bytes());
    command.replace(place, 2, path);
    Start(command);
    ASSERT_TRUE(ShowsNotes(1));
    EXPECT_EQ(NoteWindow(NotesOnTheScreen().at(0)).Text(), L"with a double click");
}

TEST_F(Installing, KeepsTheChoiceOfAnotherProgram) {
    SetUserText(kExtensionKey, L"", L"Other.Note");
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    EXPECT_EQ(UserText(kExtensionKey, L""), L"Other.Note");
    EXPECT_TRUE(UserText(std::wstring(kExtensionKey) + L"\\OpenWithProgids", L"Quillo.Note")) << "offered beside it";
}

TEST_F(Installing, CreatesTwoEntriesInTheStartMenu) {
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    EXPECT_EQ(ReadLink(StartMenu() / L"Quillo.lnk").target, Folder() / L"quillo.exe");
    const Link newNote = ReadLink(StartMenu() / L"Quillo - new note.lnk");
    EXPECT_EQ(newNote.target, Folder() / L"quillo-new.exe");
    EXPECT_EQ(newNote.hotkey, 0) << "a key is the user's choice";

    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART /HOTKEY"), 0U);
    const WORD ctrlAltN = MAKEWORD('N', HOTKEYF_CONTROL | HOTKEYF_ALT);
    EXPECT_EQ(ReadLink(StartMenu() / L"Quillo - new note.lnk").hotkey, ctrlAltN);
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    EXPECT_EQ(ReadLink(StartMenu() / L"Quillo - new note.lnk").hotkey, ctrlAltN) << "an update keeps the choice";
}

/// A window of the process with that title, when it is on the screen.
HWND WindowWithTitle(DWORD process, const std::wstring& title) {
    HWND found = nullptr;
    const bool there = Eventually([&] {
        for (HWND window : WindowsOf(process)) {
            if (IsWindowVisible(window) != 0 && WindowText(window) == title) found = window;
        }
        return found != nullptr;
    });
    return there ? found : nullptr;
}

/// The texts of all the parts of a window, one after another.
std::wstring TextsIn(HWND window) {
    std::wstring texts;
    EnumChildWindows(
        window,
        [](HWND child, LPARAM parameter) -> BOOL {
            if (IsWindowVisible(child) != 0) *reinterpret_cast<std::wstring*>(parameter) += WindowText(child) + L"\n";
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&texts));
    return texts;
}

TEST_F(Installing, HasOnePageThatDescribesItsSteps) {
    Family& setup = Start(L"\"" + OldSetup() + L"\"");
    HWND page = WindowWithTitle(setup.Pid(), L"Quillo " + Version() + L" Setup");
    ASSERT_NE(page, nullptr);
    ASSERT_TRUE(Eventually([&] { return TextsIn(page).find(L"Ctrl+Alt+N") != std::wstring::npos; }));
    EXPECT_NE(TextsIn(page).find(Folder().wstring()), std::wstring::npos);
    EXPECT_NE(TextsIn(page).find(L"turn to the page Behavior"), std::wstring::npos)
        << "where the start is switched off";
    PostMessageW(page, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(setup.ExitCode(), 0U) << "no other page waits for an answer";
    EXPECT_TRUE(ShowsNotes(0)) << "started at the end";
}

TEST_F(Installing, CanceledHasChangedNothing) {
    Family& setup = Start(L"\"" + OldSetup() + L"\"");
    HWND page = WindowWithTitle(setup.Pid(), L"Quillo " + Version() + L" Setup");
    ASSERT_NE(page, nullptr);
    PostMessageW(page, WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(setup.ExitCode(), 1U);
    EXPECT_FALSE(HasUserKey(kUninstallKey));
    EXPECT_FALSE(std::filesystem::exists(Folder()));
}

}  // namespace
}  // namespace quillo::e2e
