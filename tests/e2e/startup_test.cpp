#include <set>

#include "harness/e2e_test.h"
#include "harness/tray.h"
#include "platform/unique_handle.h"

// After windows.h.
#include <tlhelp32.h>

namespace quillo::e2e {
namespace {

using ::testing::IsEmpty;

constexpr std::uint32_t kTrue = 0xFFFFFFFF;
constexpr COLORREF kFirstRunNote = 0xC0FFFF;
constexpr COLORREF kFirstRunBorder = 0xC0FF;
constexpr COLORREF kDefaultNote = 0xD7FDFE;
constexpr COLORREF kDefaultBorder = 0x38CFFE;

/// The libraries that a process has loaded, in lower case.
std::set<std::wstring> LibrariesOf(DWORD process) {
    std::set<std::wstring> names;
    const KernelHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, process));
    MODULEENTRY32W module{};
    module.dwSize = sizeof module;
    for (BOOL more = Module32FirstW(snapshot.Get(), &module); more != 0;
         more = Module32NextW(snapshot.Get(), &module)) {
        std::wstring name = module.szModule;
        CharLowerW(name.data());
        names.insert(name);
    }
    return names;
}

class FirstRun : public E2eTest {};
class Startup : public OrdinaryTest {};

TEST_F(FirstRun, SetsUpTheProfileAndShowsNothing) {
    Start();
    EXPECT_TRUE(FolderExists(Profile().NotesFolder()));
    EXPECT_EQ(Profile().Number(L"Shown Help"), kTrue);
    EXPECT_EQ(Profile().RunValue(), QuilloExe());
    EXPECT_THAT(Quillo().Notes(), IsEmpty());
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
    EXPECT_FALSE(Quillo().HasShownBalloon());
    EXPECT_THAT(StorageCopies(), IsEmpty());
}

TEST_F(FirstRun, HasColorsOfItsOwn) {
    Profile().SetNumber(L"Random note color", 0);
    Profile().AddNote(L"plain.qln", "hello");
    Start();
    const NoteWindow first = FindNote(Quillo(), L"hello");
    // The help of the first run may cover the note, at any moment until its viewer is ready. A call that changes
    // nothing in the order of Windows does not raise the note on the virtual desktop.
    const auto becomes = [&first](COLORREF (NoteWindow::*shown)() const, COLORREF expected) {
        return Eventually([&] {
            for (HWND after : {HWND_NOTOPMOST, HWND_TOPMOST})
                SetWindowPos(first.Handle(), after, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
            return (first.*shown)() == expected;
        });
    };
    EXPECT_TRUE(becomes(&NoteWindow::TextBackground, kFirstRunNote));
    EXPECT_TRUE(becomes(&NoteWindow::FaceColor, kFirstRunNote));
    EXPECT_TRUE(becomes(&NoteWindow::OutlineColor, kFirstRunBorder));
    Quit();

    Start();
    const NoteWindow second = FindNote(Quillo(), L"hello");
    EXPECT_TRUE(Eventually([&] { return second.TextBackground() == kDefaultNote; }));
    EXPECT_TRUE(Eventually([&] { return second.FaceColor() == kDefaultNote; }));
    EXPECT_TRUE(Eventually([&] { return second.OutlineColor() == kDefaultBorder; }));
}

TEST_F(FirstRun, GivesPlainFilesRandomColors) {
    constexpr int kFiles = 12;
    for (int i = 0; i < kFiles; ++i) {
        WriteBytes(Outside() / (std::to_wstring(i) + L".txt"), "plain");
    }
    Start();
    std::set<std::string> looks;
    for (int i = 0; i < kFiles; ++i) {
        EXPECT_EQ(RunToEnd(std::to_wstring(i) + L".txt", Outside().Path()), 0U);
    }
    for (const std::wstring& path : StorageCopies()) {
        const std::string bytes = ReadBytes(path);
        EXPECT_THAT(bytes, ::testing::HasSubstr("<appearance>False,True,")) << "the note owns its colors";
        looks.insert(bytes.substr(bytes.find("<appearance>")));
    }
    EXPECT_EQ(StorageCopies().size(), 12U);
    EXPECT_GT(looks.size(), 1U);
}

TEST_F(FirstRun, WithCloseStoresNothing) {
    for (const wchar_t* arguments : {L"/close", L"/CLOSE", L"  /Close now", L"/closet"}) {
        EXPECT_EQ(RunToEnd(arguments), 0U);
        EXPECT_FALSE(Profile().HasSettings());
        EXPECT_FALSE(Profile().RunValue());
        EXPECT_FALSE(FolderExists(Profile().MakersFolder()));
    }
}

TEST_F(Startup, ANoteOnTheScreenHasLoadedNoLibraryOfALaterUse) {
    Profile().AddNote(L"plain.qln", "hello");
    Start();
    (void)FindNote(Quillo(), L"hello");
    const std::set<std::wstring> loaded = LibrariesOf(Quillo().Pid());
    EXPECT_TRUE(loaded.count(L"user32.dll") == 1 && loaded.count(L"quillo.exe") == 1) << "the list was read";
    // Those of scripts/libraries.txt that neither the start nor the icon beside the clock uses.
    for (const wchar_t* later : {L"comctl32.dll", L"mapi32.dll", L"oleacc.dll", L"winmm.dll", L"comdlg32.dll"}) {
        EXPECT_EQ(loaded.count(later), 0U) << std::wstring(later);
    }
}

TEST_F(Startup, WritesTheRunValueWheneverItDiffers) {
    std::wstring otherCase = QuilloExe();
    CharUpperW(otherCase.data());
    for (const std::wstring& before : {std::wstring(L"C:\\elsewhere\\quillo.exe"), otherCase, std::wstring()}) {
        Profile().SetRunValue(before);
        Start();
        EXPECT_EQ(Profile().RunValue(), QuilloExe());
        Quit();
        EXPECT_EQ(Profile().RunValue(), QuilloExe()) << "\"Startup Mode\" is 0";
    }
}

TEST_F(Startup, Mode1DeletesTheRunValueWithTheLastNote) {
    Profile().SetNumber(L"Startup Mode", 1);
    Start();
    EXPECT_EQ(Profile().RunValue(), QuilloExe());
    Quit();
    EXPECT_EQ(Profile().RunValue(), std::nullopt);
    Start();
    EXPECT_EQ(Profile().RunValue(), QuilloExe());
    Quit();
}

TEST_F(Startup, Mode1KeepsTheRunValueWhileANoteIsOpen) {
    Profile().SetNumber(L"Startup Mode", 1);
    Profile().AddNote(L"note.qln", NoteFile{"still here"}.Bytes());
    Start();
    Quit();
    EXPECT_EQ(Profile().RunValue(), QuilloExe());
}

TEST_F(Startup, ReportsUnknownCommandsOnceTheNotesAreOpen) {
    Profile().AddNote(L"note.qln", NoteFile{"a note"}.Bytes());
    for (const std::wstring& command : {std::wstring(L"/new"), std::wstring(L"/x y")}) {
        Start(L" " + command + L"  ");
        const auto box = MessageBoxWindow::WaitFor(Quillo().Pid());
        ASSERT_TRUE(box);
        EXPECT_EQ(VisibleNotes(Quillo()), 1U) << "the notes come first";
        EXPECT_EQ(box->Title(), L"Quillo");
        EXPECT_EQ(box->Text(), L"Unknown command: " + command);
        EXPECT_TRUE(box->ShowsStopIcon());
        const std::vector<HWND> icons = TrayIconWindows(Quillo().Pid());
        ASSERT_EQ(icons.size(), 1U) << "the icon beside the clock is there already";
        EXPECT_TRUE(IsTrayIconShowing(icons.front()));
        EXPECT_TRUE(box->Answer(IDOK));
        EXPECT_EQ(NotesOf(Quillo()).size(), 1U) << "no note is made";
        Quit();
    }
}

TEST_F(Startup, ClosesWhileItReportsAnUnknownCommand) {
    Start(L"/x");
    ASSERT_TRUE(MessageBoxWindow::WaitFor(Quillo().Pid()));
    EXPECT_EQ(RunToEnd(L"/close"), 0U);
    const auto box = MessageBoxWindow::Find(Quillo().Pid());
    EXPECT_TRUE(!box || box->Answer(IDOK));
    EXPECT_EQ(Quillo().WaitForExit(), 0U) << "the command is not lost";
}

TEST_F(Startup, CommandsAfterCloseAreNotCarriedOut) {
    const std::wstring path = Outside() / L"late.txt";
    WriteBytes(path, "late");
    Start(L"/x");
    ASSERT_TRUE(MessageBoxWindow::WaitFor(Quillo().Pid()));
    EXPECT_EQ(RunToEnd(L"/close"), 0U);
    EXPECT_EQ(RunToEnd(path), 0U);
    const auto box = MessageBoxWindow::Find(Quillo().Pid());
    EXPECT_TRUE(!box || box->Answer(IDOK));
    EXPECT_EQ(Quillo().WaitForExit(), 0U);
    EXPECT_TRUE(FileExists(path)) << "nothing is taken in after the end";
}

TEST_F(Startup, OpensTheFileOfItsCommandLineAfterTheSavedNotes) {
    Profile().AddNote(L"saved.qln", NoteFile{"saved"}.Bytes());
    const std::wstring path = Outside() / L"given.qln";
    for (const std::wstring& arguments : {path, L"\"" + path + L"\"", L"@" + path, L"@ \"" + path + L"\" "}) {
        NoteFile given{"given"};
        given.last = "<filename>" + std::string("c:\\old place\\given.qln") + "</filename>";
        WriteBytes(path, given.Bytes());
        Start(arguments);
        ASSERT_NE(FindNote(Quillo(), L"saved").Handle(), nullptr);
        const NoteWindow note = FindNote(Quillo(), L"given");
        EXPECT_TRUE(note.IsVisible());
        EXPECT_FALSE(FileExists(path)) << "it has moved into the folder of notes";
        note.ClickButton(NoteButtonId::Close);
        EXPECT_TRUE(Eventually([&] { return FileExists(path); })) << "a closed note is saved to its own file";
        EXPECT_TRUE(Eventually([&] { return !note.Exists(); }));
        Quit();
    }
}

TEST_F(Startup, OpensARelativePathFromItsOwnFolder) {
    WriteBytes(Outside() / L"near.txt", "near by");
    Start(L"near.txt", Outside().Path());
    EXPECT_TRUE(FindNote(Quillo(), L"near by").IsVisible());
    EXPECT_FALSE(FileExists(Outside() / L"near.txt"));
}

TEST_F(Startup, IgnoresOtherFilesInTheFolder) {
    Profile().AddNote(L"note.QLN", NoteFile{"capital"}.Bytes());
    Profile().AddNote(L"note.qlnx", "longer ending");
    Profile().AddNote(L"note.txt", "text");
    Profile().AddNote(L"qln", "no ending");
    CreateDirectoryW((Profile().NotesFolder() + L"\\folder.qln").c_str(), nullptr);
    Start();
    EXPECT_EQ(NotesOf(Quillo()).size(), 1U);
    EXPECT_TRUE(FindNote(Quillo(), L"capital").IsVisible());
}

}  // namespace
}  // namespace quillo::e2e
