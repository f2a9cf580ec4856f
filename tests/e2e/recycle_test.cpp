#include "harness/e2e_test.h"
#include "harness/recycle_bin.h"

namespace quillo::e2e {
namespace {

/// A note deleted with the keyboard, and restored.
class Recycling : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        if (Profile().IsReady()) Profile().SetText(L"Note folder", Outside().Path());
    }
    static bool ThrowAway(const NoteWindow& note) {
        if (!note.TakeKeyboard()) return false;
        PressKey('W', {VK_CONTROL, VK_SHIFT});
        return Eventually([&] { return !note.Exists(); });
    }
    /// The bytes that a deleted or closed note leaves at that path.
    static std::string BytesAt(const std::wstring& path, NoteFile file, const std::string& element) {
        file.last = "<" + element + ">" + Narrow(path) + "</" + element + ">";
        return file.Bytes();
    }
};

TEST_F(Recycling, ANoteIsRestoredFromTheRecycleBin) {
    NoteFile file{"Precious"};
    file.appearance = "True,True,16777088,128,16711680,0";
    file.reminder = "#402133.25";
    Profile().AddNote(L"note.qln", file.Bytes());
    Start();
    const std::wstring path = Outside() / L"Precious.qln";
    ASSERT_TRUE(ThrowAway(FindNote(Quillo(), L"Precious")));
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid())) << "without a question";
    EXPECT_TRUE(StorageCopies().empty());
    EXPECT_FALSE(FileExists(path));
    ASSERT_TRUE(Eventually([&] { return IsInRecycleBin(path); }));

    ASSERT_TRUE(RestoreFromRecycleBin(path));
    EXPECT_FALSE(IsInRecycleBin(path));
    EXPECT_EQ(ReadBytes(path), BytesAt(path, file, "tempfilename"));
    EXPECT_EQ(RunToEnd(L"\"" + path + L"\""), 0U);
    EXPECT_TRUE(WaitForNote(Quillo(), L"Precious").IsVisible());
    EXPECT_FALSE(FileExists(path));
    ASSERT_EQ(StorageCopies().size(), 1U);
    EXPECT_EQ(ReadBytes(StorageCopies()[0]), file.Bytes());
}

TEST_F(Recycling, ANamedNoteIsDeletedUnderItsName) {
    const std::wstring path = Outside() / L"shopping list.qln";
    NoteFile file{"Milk and bread"};
    WriteBytes(path, BytesAt(path, file, "filename"));
    Start(L"\"" + path + L"\"");
    const NoteWindow note = WaitForNote(Quillo(), L"Milk and bread");
    EXPECT_FALSE(FileExists(path));
    ASSERT_TRUE(ThrowAway(note));
    ASSERT_TRUE(Eventually([&] { return IsInRecycleBin(path); }));
    ASSERT_TRUE(RestoreFromRecycleBin(path));
    EXPECT_EQ(ReadBytes(path), BytesAt(path, file, "filename"));
}

TEST_F(Recycling, AnEmptyNoteIsNotRecycled) {
    const long long before = RecycledItems();
    Profile().AddNote(L"note.qln", NoteFile{""}.Bytes());
    Start();
    ASSERT_TRUE(ThrowAway(FindNote(Quillo(), L"")));
    EXPECT_TRUE(StorageCopies().empty());
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
    EXPECT_EQ(RecycledItems(), before);
}

TEST_F(Recycling, WithoutTheRecycleBinTheKeysDeletePermanentlyWithoutAQuestion) {
    Profile().SetNumber(L"Don't recycle notes", 1);
    const long long before = RecycledItems();
    Profile().AddNote(L"note.qln", NoteFile{"Rubbish"}.Bytes());
    Start();
    ASSERT_TRUE(ThrowAway(FindNote(Quillo(), L"Rubbish")));
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
    EXPECT_TRUE(StorageCopies().empty());
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
    EXPECT_EQ(RecycledItems(), before);
}

}  // namespace
}  // namespace quillo::e2e
