#include "install_fixture.h"

namespace quillo::e2e {
namespace {

class Removing : public InstallTest {
  protected:
    void AddNotes() const {
        Profile().AddNote(L"one.qln", NoteFile{"one"}.Bytes());
        Profile().AddNote(L"two.qln", NoteFile{"two"}.Bytes());
    }
};

TEST_F(Removing, KeepsTheNotesAndTheSettings) {
    AddNotes();
    Profile().SetNumber(L"Note opacity", 100);
    Install(2);
    NoteWindow(NotesOnTheScreen().at(0)).Edit(0, 0, L"last words, ");
    Remove();
    EXPECT_EQ(FindChannel(), nullptr) << "the program was closed first";
    EXPECT_FALSE(Profile().RunValue());
    EXPECT_FALSE(HasUserKey(kTypeKey));
    EXPECT_FALSE(HasUserKey(kExtensionKey));
    EXPECT_FALSE(HasUserKey(kAppIdKey));
    EXPECT_FALSE(HasUserKey(L"Software\\Marrowind\\Quillo Capabilities"));
    EXPECT_FALSE(std::filesystem::exists(StartMenu() / L"Quillo.lnk"));
    EXPECT_FALSE(std::filesystem::exists(StartMenu() / L"Quillo - new note.lnk"));
    EXPECT_EQ(FilesIn(Profile().NotesFolder(), L".qln").size(), 2U);
    EXPECT_EQ(Profile().Number(L"Note opacity"), 100U);

    Install(2);
    std::vector<std::wstring> texts;
    for (HWND note : NotesOnTheScreen()) texts.push_back(NoteWindow(note).Text());
    EXPECT_THAT(texts, ::testing::Contains(::testing::StartsWith(L"last words, ")));
}

TEST_F(Removing, DeletesTheSettingsWhenToldTo) {
    AddNotes();
    Profile().SetNumber(L"Note opacity", 100);
    Profile().SetText(L"Note folder", L"C:\\somewhere");
    Install(2);
    Remove(L"/SETTINGS");
    EXPECT_FALSE(Profile().HasSettings());
    EXPECT_EQ(FilesIn(Profile().NotesFolder(), L".qln").size(), 2U) << "the notes stay, always";
}

TEST_F(Removing, KeepsValuesThatAreNotSettingsOfQuillo) {
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    Profile().SetText(L"Somebody else's", L"value");
    Remove(L"/SETTINGS");
    EXPECT_EQ(Profile().AllSettings().size(), 1U);
    EXPECT_EQ(Profile().Text(L"Somebody else's"), L"value");
}

TEST_F(Removing, KeepsEverySettingWhileOldNotesAreAmongThem) {
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    Profile().SetNumber(L"Notes", 1);
    Profile().SetText(L"Note 1", L"from long ago");
    Profile().SetNumber(L"Note opacity", 100);
    const auto before = Profile().AllSettings();
    Remove(L"/SETTINGS");
    EXPECT_EQ(Profile().AllSettings(), before);
}

TEST_F(Removing, KeepsValuesThatNameAnotherProgram) {
    SetUserText(kExtensionKey, L"", L"Other.Note");
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    Profile().SetRunValue(L"C:\\elsewhere\\quillo.exe");
    Remove();
    EXPECT_EQ(Profile().RunValue(), L"C:\\elsewhere\\quillo.exe");
    EXPECT_EQ(UserText(kExtensionKey, L""), L"Other.Note");
    EXPECT_FALSE(UserText(std::wstring(kExtensionKey) + L"\\OpenWithProgids", L"Quillo.Note"));
}

TEST_F(Removing, KeepsTheFileTypeOfAnotherInstallation) {
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    const std::wstring command = std::wstring(kTypeKey) + L"\\shell\\open\\command";
    SetUserText(command, L"", L"\"C:\\elsewhere\\quillo.exe\" \"%1\"");
    Remove();
    EXPECT_EQ(UserText(command, L""), L"\"C:\\elsewhere\\quillo.exe\" \"%1\"");
    EXPECT_EQ(UserText(kExtensionKey, L""), L"Quillo.Note");
}

TEST_F(Removing, KeepsForeignFilesInItsFolder) {
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    WriteBytes(Installed(L"mine.txt"), "mine");
    Start(L"\"" + Installed(L"uninstall.exe") + L"\" /S");
    EXPECT_TRUE(Eventually([&] { return !HasUserKey(kUninstallKey) && !HasUserKey(kTypeKey); }));
    EXPECT_EQ(FilesIn(Folder().wstring()), std::vector<std::wstring>{L"mine.txt"});
}

TEST_F(Removing, WaitsForAProgramThatDoesNotEnd) {
    AddNotes();
    Install(2);
    {
        const Suspension hung(RunningProgram());
        // Without a copy of itself, so that the exit code is available.
        EXPECT_EQ(Start(L"\"" + Installed(L"uninstall.exe") + L"\" /S /WAIT=1 _?=" + Folder().wstring()).ExitCode(),
                  2U);
    }
    EXPECT_FALSE(IsNew());
    EXPECT_TRUE(HasUserKey(kUninstallKey));
}

}  // namespace
}  // namespace quillo::e2e
