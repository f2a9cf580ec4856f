#include <filesystem>

#include "harness/e2e_test.h"

namespace quillo::e2e {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const wchar_t* kCount = L"Notes";
constexpr const wchar_t* kOfEachNote[] = {L"Note ", L"Note size ", L"Note reminder ", L"Note appearance ",
                                          L"Note filename "};

/// Notes that an old version of the program has left in the registry.
class OldStore : public OrdinaryTest {
  protected:
    struct StoredNote {
        std::wstring text;
        std::wstring size;
        std::wstring reminder;
        std::wstring appearance;
        std::wstring fileName;
    };

    void Put(int number, const StoredNote& note) const {
        const std::wstring n = std::to_wstring(number);
        Profile().SetText((L"Note " + n).c_str(), note.text);
        Profile().SetText((L"Note size " + n).c_str(), note.size);
        Profile().SetText((L"Note reminder " + n).c_str(), note.reminder);
        Profile().SetText((L"Note appearance " + n).c_str(), note.appearance);
        Profile().SetText((L"Note filename " + n).c_str(), note.fileName);
    }
    void PutCount(std::uint32_t count) const { Profile().SetNumber(kCount, count); }
    /// How many values of the store still exist, for notes up to that number.
    [[nodiscard]] int ValuesLeft(int count) const {
        int left = Profile().HasValue(kCount) ? 1 : 0;
        for (int number = 1; number <= count; ++number) {
            for (const wchar_t* name : kOfEachNote) {
                left += Profile().HasValue((name + std::to_wstring(number)).c_str()) ? 1 : 0;
            }
        }
        return left;
    }
    void PutTwo() const {
        PutCount(2);
        Put(1, {L"Buy milk", L"3000,1500,4500,3000,-1", L"#2958465.5", L"False,True,255,65280,16711680,0",
                Outside() / L"milk.qln"});
        Put(2, {L"Call Bob", L"", L"", L"", L""});
    }
    /// The bytes of the storage copy with that text.
    [[nodiscard]] std::string StorageCopyOf(const std::string& text) const {
        for (const std::wstring& path : StorageCopies()) {
            const std::string bytes = ReadBytes(path);
            if (bytes.rfind(text, 0) == 0) return bytes;
        }
        ADD_FAILURE() << "no file holds " << text;
        return {};
    }
};

TEST_F(OldStore, AnEmptyOneIsClearedWithoutNotes) {
    PutCount(0);
    Start();
    EXPECT_THAT(NotesOf(Quillo()), IsEmpty());
    Quit();
    EXPECT_EQ(ValuesLeft(1), 0);
    EXPECT_THAT(StorageCopies(), IsEmpty());
}

TEST_F(OldStore, TwoNotesMoveIntoFiles) {
    PutTwo();
    ASSERT_EQ(ValuesLeft(2), 11);
    Start();
    EXPECT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == 2; }));
    const NoteWindow milk = WaitForNote(Quillo(), L"Buy milk");
    EXPECT_EQ(milk.Rectangle().left, PixelsOfTwips(3000));
    EXPECT_EQ(milk.Rectangle().top, PixelsOfTwips(1500));
    EXPECT_EQ(milk.Width(), PixelsOfTwips(4500));
    EXPECT_EQ(milk.Height(), PixelsOfTwips(3000));
    EXPECT_TRUE(milk.IsTopmost());
    EXPECT_TRUE(Eventually([&] { return milk.TextBackground() == RGB(255, 0, 0); }));
    const NoteWindow bob = WaitForNote(Quillo(), L"Call Bob");
    EXPECT_EQ(bob.Rectangle().left, 0);
    EXPECT_EQ(bob.Rectangle().top, 0);
    EXPECT_EQ(bob.Width(), PixelsOfTwips(2000));
    EXPECT_EQ(bob.Height(), PixelsOfTwips(2000));
    EXPECT_FALSE(bob.IsTopmost());
    Quit();
    EXPECT_EQ(ValuesLeft(2), 0);
    EXPECT_EQ(StorageCopies().size(), 2U);
    EXPECT_THAT(StorageCopyOf("Buy milk\r\n"), HasSubstr("<reminder>#2958465.5</reminder>"));

    Start();
    EXPECT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == 2; }));
    EXPECT_EQ(WaitForNote(Quillo(), L"Buy milk").Rectangle().left, PixelsOfTwips(3000));
    EXPECT_EQ(NotesOf(Quillo()).size(), 2U) << "a second start imports nothing";
}

TEST_F(OldStore, ANoteIsClosedIntoTheFileThatItWasSavedAs) {
    const std::wstring file = Outside() / L"milk.qln";
    PutCount(1);
    Put(1, {L"Buy milk", L"3000,1500,4500,3000,0", L"", L"", file});
    Start();
    WaitForNote(Quillo(), L"Buy milk").ClickButton(NoteButtonId::Close);
    EXPECT_TRUE(Eventually([&] { return NotesOf(Quillo()).empty(); }));
    EXPECT_THAT(ReadBytes(file), HasSubstr("Buy milk\r\n"));
    Quit();
    EXPECT_EQ(ValuesLeft(1), 0);
}

TEST_F(OldStore, SixtyNotesAllOpenAndFilesAboveTheLimitStayUnchanged) {
    constexpr int kNotes = 60;
    PutCount(kNotes);
    for (int number = 1; number <= kNotes; ++number) {
        Put(number, {L"note " + std::to_wstring(number), L"", L"", L"", L""});
    }
    const std::wstring file = Profile().AddNote(L"waiting.qln", NoteFile{"waiting"}.Bytes());
    const FileMark before = MarkOf(file);
    Start();
    EXPECT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == 60; }));
    EXPECT_TRUE(WaitForNote(Quillo(), L"note 60").Exists());
    Quit();
    EXPECT_EQ(ValuesLeft(kNotes), 0);
    EXPECT_EQ(StorageCopies().size(), 61U);
    EXPECT_TRUE(MarkOf(file) == before);
}

TEST_F(OldStore, DamagedNotesOpenAsFarAsTheyCanBeRead) {
    PutCount(0x7FFFFFFF);
    Put(1, {L"too few fields", L"1500,1500", L"nonsense", L"x,y,z", L"nonsense"});
    Put(2, {L"no numbers", L"a,b,c,d,e", L"#", L"True,True,red,,,9", L""});
    Put(3, {L"far away", L"900000,-900000,3000,1e300,1", L"", L"", L""});
    Start();
    for (const wchar_t* text : {L"too few fields", L"no numbers", L"far away"}) {
        const NoteWindow note = WaitForNote(Quillo(), text);
        const bool unknown = std::wstring(text) == L"no numbers";  // whether it should be visible
        EXPECT_EQ(note.IsVisible(), !unknown) << "a state that is not known";
        EXPECT_GT(note.Width(), 20);
        EXPECT_NE(MonitorFromWindow(note.Handle(), MONITOR_DEFAULTTONULL), nullptr) << "can be reached";
    }
    EXPECT_EQ(NotesOf(Quillo()).size(), 50U) << "a count that cannot be true does not fill the desktop";
    Quit();
    EXPECT_EQ(ValuesLeft(3), 0);
    EXPECT_EQ(StorageCopies().size(), 50U);
}

TEST_F(OldStore, AKillAfterTheStartNeitherLosesNorDoublesANote) {
    PutTwo();
    for (int start = 0; start < 2; ++start) {
        Start();
        EXPECT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == 2; }));
        Quillo().Kill();
    }
    Start();
    EXPECT_EQ(NotesOf(Quillo()).size(), 2U);
    EXPECT_EQ(ValuesLeft(2), 0);
    EXPECT_EQ(StorageCopies().size(), 2U);
}

TEST_F(OldStore, StaysWholeWhileANoteCannotBeWritten) {
    PutTwo();
    // A file instead of the folder: nothing can be written there.
    std::filesystem::create_directories(Profile().MakersFolder());
    WriteBytes(Profile().NotesFolder(), "in the way");
    Start();
    EXPECT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == 2; }));
    Quit();
    EXPECT_EQ(ValuesLeft(2), 11);

    ASSERT_TRUE(std::filesystem::remove(Profile().NotesFolder()));
    Start();
    EXPECT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == 2; })) << "nothing was lost";
    Quit();
    EXPECT_EQ(ValuesLeft(2), 0);
    EXPECT_EQ(StorageCopies().size(), 2U);
}

}  // namespace
}  // namespace quillo::e2e
