#include <set>

#include "harness/e2e_test.h"

// After windows.h.
#include <shlobj.h>

namespace quillo::e2e {
namespace {

constexpr char kInTheYear3000[] = "#402133.25";

/// A note closed with keys: to a file, and back from it.
class Closing : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        if (Profile().IsReady()) Profile().SetText(L"Note folder", Outside().Path());
    }
    NoteWindow Open(const NoteFile& file) {
        Profile().AddNote(L"note.qln", file.Bytes());
        Start();
        return FindNote(Quillo(), Widen(file.text));
    }
    static bool CloseByKeys(const NoteWindow& note, WORD key = 'W', WORD held = VK_CONTROL) {
        if (!note.TakeKeyboard()) return false;
        PressKey(key, {held});
        return Eventually([&] { return !note.Exists(); });
    }
    static std::set<std::wstring> FilesOnTheDesktop() {
        PWSTR found = nullptr;
        EXPECT_EQ(SHGetKnownFolderPath(FOLDERID_Desktop, KF_FLAG_CREATE, nullptr, &found), S_OK);
        const std::wstring desktop = found;
        CoTaskMemFree(found);
        std::set<std::wstring> paths;
        for (const std::wstring& name : FilesIn(desktop, L".qln")) paths.insert(desktop + L"\\" + name);
        return paths;
    }
    static std::string Element(const std::string& name, const std::wstring& path) {
        return "<" + name + ">" + Narrow(path) + "</" + name + ">";
    }
};

TEST_F(Closing, ATypedNoteIsAFileWhileClosedAndANoteOnceOpened) {
    Start();
    EXPECT_EQ(RunToEnd(L"/new"), 0U);
    const NoteWindow note = WaitForNote(Quillo(), L"");
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L"Milk\nBr\u00F6d");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"Milk\r\nBr\u00F6d"; }));
    const RECT area = note.Rectangle();
    NoteFile file{
        "Milk\r\nBr\xF6"
        "d"};
    file.position = PositionOfPixels(area.left, area.top, note.Width(), note.Height());

    ASSERT_TRUE(CloseByKeys(note));
    ASSERT_EQ(FilesIn(Outside().Path()).size(), 1U);
    const std::wstring path = Outside() / FilesIn(Outside().Path())[0];
    NoteFile closed = file;
    closed.last = Element("tempfilename", path);
    EXPECT_EQ(ReadBytes(path), closed.Bytes());
    EXPECT_TRUE(FilesIn(Profile().NotesFolder()).empty()) << "a closed note has no storage copy";

    EXPECT_EQ(RunToEnd(L"\"" + path + L"\""), 0U);
    const NoteWindow again = WaitForNote(Quillo(), L"Milk\r\nBr\u00F6d");
    EXPECT_TRUE(again.IsVisible());
    EXPECT_FALSE(FileExists(path));
    ASSERT_EQ(StorageCopies().size(), 1U);
    EXPECT_EQ(ReadBytes(StorageCopies()[0]), file.Bytes());
}

TEST_F(Closing, TheSystemsOwnCloseKeyIsTheCloseButton) {
    ASSERT_TRUE(CloseByKeys(Open(NoteFile{"Milk"}), VK_F4, VK_MENU));
    EXPECT_TRUE(FileExists(Outside() / L"Milk.qln"));
    EXPECT_TRUE(Quillo().WaitUntilReady());
}

TEST_F(Closing, ANamedNoteIsSavedToItsOwnFile) {
    const std::wstring path = Outside() / L"shopping list.qln";
    NoteFile file{"Milk and bread"};
    file.last = Element("filename", path);
    WriteBytes(path, file.Bytes());
    Start(L"\"" + path + L"\"");
    const NoteWindow note = WaitForNote(Quillo(), L"Milk and bread");
    EXPECT_FALSE(FileExists(path));
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L"!");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"Milk and bread!"; }));
    ASSERT_TRUE(CloseByKeys(note));
    file.text += "!";
    EXPECT_EQ(ReadBytes(path), file.Bytes());
    EXPECT_EQ(FilesIn(Outside().Path()).size(), 1U);
}

TEST_F(Closing, WithoutRememberedNamesANamedNoteIsNamedAfterItsText) {
    Profile().SetNumber(L"Do not remember filenames", 1);
    const std::wstring path = Outside() / L"shopping list.qln";
    NoteFile file{"Milk"};
    file.last = Element("filename", path);
    WriteBytes(path, file.Bytes());
    Start(L"\"" + path + L"\"");
    ASSERT_TRUE(CloseByKeys(WaitForNote(Quillo(), L"Milk")));
    const std::wstring fresh = Outside() / L"Milk.qln";
    file.last = Element("tempfilename", fresh);
    EXPECT_EQ(ReadBytes(fresh), file.Bytes());
    EXPECT_FALSE(FileExists(path));
}

TEST_F(Closing, ALineBreakAloneIsKeptOnTheDesktop) {
    const std::set<std::wstring> before = FilesOnTheDesktop();
    const NoteWindow note = Open(NoteFile{""});
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L"\n");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"\r\n"; }));
    ASSERT_TRUE(CloseByKeys(note));
    EXPECT_TRUE(FilesIn(Outside().Path()).empty()) << "its text gives it no name in the folder of the settings";
    std::vector<std::wstring> fresh;
    for (const std::wstring& path : FilesOnTheDesktop()) {
        if (before.count(path) == 0) fresh.push_back(path);
    }
    ASSERT_EQ(fresh.size(), 1U);
    EXPECT_THAT(ReadBytes(fresh[0]), ::testing::StartsWith("\r\n\r\n<quillo>"));
    DeleteFileW(fresh[0].c_str());
}

TEST_F(Closing, ABlankNoteWithAReminderIsHidden) {
    NoteFile file{"  "};
    file.reminder = kInTheYear3000;
    const NoteWindow note = Open(file);
    ASSERT_TRUE(note.TakeKeyboard());
    PressKey('W', {VK_CONTROL});
    EXPECT_TRUE(Eventually([&] { return !note.IsVisible(); }));
    EXPECT_TRUE(note.Exists());
    EXPECT_EQ(note.Text(), L"  ") << "the letter of a shortcut is not typed";
    EXPECT_TRUE(Eventually([&] { return Quillo().HasShownBalloon(); }));
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
}

TEST_F(Closing, ALetterWithAltGrIsNotAShortcut) {
    const NoteWindow note = Open(NoteFile{"Milk"});
    ASSERT_TRUE(note.TakeKeyboard());
    for (const WORD letter : {'W', 'M', 'T', 'A', 'R'}) PressKey(letter, {VK_LCONTROL, VK_RMENU});
    TypeText(L"\u20AC");  // the character of such a key would come after all of them
    ASSERT_TRUE(Eventually([&] { return note.Text().find(L'\u20AC') != std::wstring::npos; }));
    EXPECT_TRUE(note.IsVisible());
    EXPECT_THAT(note.Text(), ::testing::StartsWith(L"Milk")) << "neither a time stamp nor the whole text replaced";
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_EQ(Quillo().Notes().size(), 1U);
}

TEST_F(Closing, TheCharactersOfTheShortcutsAreNotTyped) {
    const NoteWindow note = Open(NoteFile{"Milk"});
    ASSERT_TRUE(note.TakeKeyboard());
    PressKey('B', {VK_CONTROL});
    PressKey('P', {VK_CONTROL});
    EXPECT_TRUE(Eventually([&] { return note.IsTopmost(); }));
    PressKey('A', {VK_CONTROL});
    TypeText(L"x");
    EXPECT_TRUE(Eventually([&] { return note.Text() == L"x"; })) << "everything was selected";
    PressKey('T', {VK_CONTROL});
    EXPECT_TRUE(Eventually([&] { return note.Text().front() == L'('; }));
    EXPECT_THAT(note.Text(), ::testing::EndsWith(L")\r\n\r\nx"));
    Quit();
    ASSERT_EQ(StorageCopies().size(), 1U);
    EXPECT_THAT(ReadBytes(StorageCopies()[0]), ::testing::HasSubstr("<appearance>True,False,")) << "in large text";
}

}  // namespace
}  // namespace quillo::e2e
