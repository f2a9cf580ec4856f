#include "harness/e2e_test.h"

namespace quillo::e2e {
namespace {

/// The behavior of the window itself under the mouse and with the settings.
class NoteWindowTest : public OrdinaryTest {
  protected:
    NoteWindow Open() {
        path_ = Profile().AddNote(L"note.qln", NoteFile{"one\r\ntwo"}.Bytes());
        Start();
        return FindNote(Quillo(), L"one\r\ntwo");
    }
    /// The position element that the note's file must have for its window's current place.
    static std::string PositionElement(const NoteWindow& note) {
        const RECT area = note.Rectangle();
        return "<position>" + PositionOfPixels(area.left, area.top, note.Width(), note.Height()) + "</position>";
    }

    std::wstring path_;
};

TEST_F(NoteWindowTest, HasItsTextBoxAndThreeButtons) {
    const NoteWindow note = Open();
    EXPECT_EQ(ClassOf(note.TextBox()), L"Edit");
    for (const NoteButtonId id : {NoteButtonId::Close, NoteButtonId::Pushpin, NoteButtonId::Menu}) {
        EXPECT_TRUE(IsWindowVisible(note.Button(id)));
        RECT button{};
        GetWindowRect(note.Button(id), &button);
        EXPECT_EQ(button.right - button.left, Px(20));
        EXPECT_EQ(button.bottom - button.top, Px(20));
    }
    EXPECT_EQ(GetWindow(note.Handle(), GW_OWNER), nullptr);
}

TEST_F(NoteWindowTest, DraggingTheStripMovesItAndKeepsThePlace) {
    const NoteWindow note = Open();
    const RECT before = note.Rectangle();
    EXPECT_TRUE(Until(
        [&] {
            const RECT now = note.Rectangle();
            return now.left != before.left && now.top != before.top;
        },
        [&] {
            const POINT from = note.DragBarPoint();
            DragMouse(from, POINT{from.x + 60, from.y + 40});
        }));
    EXPECT_TRUE(note.WaitUntilReleased());
    EXPECT_EQ(note.Width(), before.right - before.left);
    EXPECT_EQ(note.Height(), before.bottom - before.top);
    const RECT after = note.Rectangle();
    Quit();
    NoteFile expected{"one\r\ntwo"};
    expected.position = PositionOfPixels(after.left, after.top, PixelsOfTwips(3000), PixelsOfTwips(2400));
    EXPECT_EQ(ReadBytes(path_), expected.Bytes());
}

TEST_F(NoteWindowTest, DraggingTheCornerResizesItAndKeepsTheSize) {
    const NoteWindow note = Open();
    const int width = note.Width();
    const int height = note.Height();
    EXPECT_TRUE(Until([&] { return note.Width() > width && note.Height() > height; },
                      [&] {
                          const POINT from = note.CornerPoint();
                          DragMouse(from, POINT{from.x + 50, from.y + 30});
                      }));
    EXPECT_TRUE(note.WaitUntilReleased());
    RECT box{};
    GetWindowRect(note.TextBox(), &box);
    EXPECT_EQ(box.right, note.Rectangle().right - Px(1)) << "the text box grows with the note";
    EXPECT_EQ(note.Rectangle().left, PixelsOfTwips(3000));
    const std::string position = PositionElement(note);
    Quit();
    EXPECT_THAT(ReadBytes(path_), ::testing::HasSubstr(position));
}

TEST_F(NoteWindowTest, DraggingTheFootChangesOnlyTheHeight) {
    const NoteWindow note = Open();
    const int width = note.Width();
    const int height = note.Height();
    EXPECT_TRUE(Until([&] { return note.Height() > height; },
                      [&] {
                          const POINT from = note.OnScreen(note.Width() / 2, note.Height() - Px(4));
                          DragMouse(from, POINT{from.x + 40, from.y + 30});
                      }));
    EXPECT_TRUE(note.WaitUntilReleased());
    EXPECT_EQ(note.Width(), width);
}

TEST_F(NoteWindowTest, ThePushpinKeepsItOnTop) {
    const NoteWindow note = Open();
    ASSERT_FALSE(note.IsTopmost());
    EXPECT_TRUE(Until([&] { return note.IsTopmost(); }, [&] { note.ClickButton(NoteButtonId::Pushpin); }));
    EXPECT_TRUE(Until([&] { return !note.IsTopmost(); }, [&] { note.ClickButton(NoteButtonId::Pushpin); }));
}

TEST_F(NoteWindowTest, TheFirstClickOnAButtonCounts) {
    const NoteWindow note = Open();
    ClickMouse(note.MiddleOfButton(NoteButtonId::Pushpin));
    EXPECT_TRUE(Eventually([&] { return note.IsTopmost(); }));
}

TEST_F(NoteWindowTest, LeavingAButtonBeforeTheReleaseDoesNothing) {
    const NoteWindow note = Open();
    RECT pin{};
    GetWindowRect(note.Button(NoteButtonId::Pushpin), &pin);
    for (int i = 0; i < 3; ++i) {
        DragMouse(POINT{pin.left + 5, pin.top + 5}, POINT{pin.left + 5, pin.bottom + Px(60)});
        EXPECT_TRUE(Quillo().WaitUntilReady());
        EXPECT_FALSE(note.IsTopmost());
    }
}

TEST_F(NoteWindowTest, NewNotesArePinnedWithAutoPin) {
    Profile().SetNumber(L"Auto-pin new notes", 1);
    const NoteWindow saved = Open();
    EXPECT_FALSE(saved.IsTopmost()) << "not the notes of start-up";
    EXPECT_EQ(RunToEnd(L"/new"), 0U);
    EXPECT_TRUE(WaitForNote(Quillo(), L"").IsTopmost());
    WriteBytes(Outside() / L"file.txt", "from a file");
    EXPECT_EQ(RunToEnd(Outside() / L"file.txt"), 0U);
    EXPECT_TRUE(WaitForNote(Quillo(), L"from a file").IsTopmost());
}

TEST_F(NoteWindowTest, IsTranslucentBySetting) {
    Profile().SetNumber(L"Note transparency", 1);
    EXPECT_EQ(Open().Alpha(), 192) << "the default opacity";
    Quit();
    Profile().SetNumber(L"Note opacity", 100);
    Start();
    EXPECT_EQ(FindNote(Quillo(), L"one\r\ntwo").Alpha(), 100);
    Quit();
    Profile().SetNumber(L"Note opacity", 256);
    Start();
    EXPECT_EQ(FindNote(Quillo(), L"one\r\ntwo").Alpha(), 192) << "an opacity that is none";
}

TEST_F(NoteWindowTest, HasAScrollBarBySetting) {
    Profile().SetNumber(L"Show scroll bars", 1);
    const NoteWindow note = Open();
    EXPECT_TRUE(note.HasScrollBar());
}

TEST_F(NoteWindowTest, TheThumbOfItsScrollBarReachesEveryLine) {
    Profile().SetNumber(L"Show scroll bars", 1);
    // More lines than the message of a scroll bar has bits for.
    constexpr int kLines = 70'000;
    std::string text = "first";
    for (int i = 0; i < kLines; ++i) text += "\r\n";
    Profile().AddNote(L"note.qln", NoteFile{text}.Bytes());
    Start();
    const NoteWindow note = FindNote(Quillo(), std::wstring(text.begin(), text.end()));
    RECT box{};
    GetWindowRect(note.TextBox(), &box);
    const LONG middle = box.right - GetSystemMetrics(SM_CXVSCROLL) / 2;
    const LONG arrow = GetSystemMetrics(SM_CYVSCROLL);
    const auto top = [&] { return SendMessageW(note.TextBox(), EM_GETFIRSTVISIBLELINE, 0, 0); };
    EXPECT_TRUE(Until([&] { return top() > kLines - 100; },
                      [&] {
                          DragMouse(POINT{middle, box.top + arrow + Px(3)}, POINT{middle, box.bottom - 1});
                      }));
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_GT(top(), kLines - 100) << "also after the release";
}

TEST_F(NoteWindowTest, HasTheFontOfTheSettings) {
    const int usual = Open().LineHeight();
    Quit();
    Profile().SetText(L"Note font size", L"24");
    Start();
    EXPECT_NEAR(FindNote(Quillo(), L"one\r\ntwo").LineHeight(), usual * 3, usual / 2);
    Quit();
    Profile().SetText(L"Note font size", L"33");
    Start();
    EXPECT_EQ(FindNote(Quillo(), L"one\r\ntwo").LineHeight(), usual) << "a size that is none";
}

TEST_F(NoteWindowTest, ATabStopsAtEveryEighthUnit) {
    Profile().AddNote(L"tab.qln", NoteFile{"\tx"}.Bytes());
    Start();
    const NoteWindow note = FindNote(Quillo(), L"\tx");
    DWORD_PTR tab = 0;
    DWORD_PTR place = 0;
    SendMessageTimeoutW(note.TextBox(), EM_POSFROMCHAR, 0, 0, SMTO_ABORTIFHUNG, 5000, &tab);
    SendMessageTimeoutW(note.TextBox(), EM_POSFROMCHAR, 1, 0, SMTO_ABORTIFHUNG, 5000, &place);
    const int width = static_cast<short>(LOWORD(place)) - static_cast<short>(LOWORD(tab));
    EXPECT_GT(width, 0);
    EXPECT_LT(width, Px(24)) << "two characters wide, not the eight of an ordinary text box";
}

TEST_F(NoteWindowTest, ANewNoteTakesTheFocusAndOthersDoNot) {
    const NoteWindow saved = Open();
    EXPECT_EQ(RunToEnd(L"/new"), 0U);
    const NoteWindow fresh = WaitForNote(Quillo(), L"");
    ASSERT_TRUE(Eventually([&] { return fresh.HasKeyboard(); }));
    TypeText(L"straight in");
    EXPECT_TRUE(Eventually([&] { return fresh.Text() == L"straight in"; }));
    EXPECT_EQ(saved.Text(), L"one\r\ntwo");
}

}  // namespace
}  // namespace quillo::e2e
