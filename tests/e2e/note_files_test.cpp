#include "harness/e2e_test.h"

namespace quillo::e2e {
namespace {

constexpr COLORREF kDefaultNote = 0xD7FDFE;
constexpr COLORREF kDefaultBorder = 0x38CFFE;

/// Prepared files, each opened by the real program and checked on the screen.
class NoteFiles : public OrdinaryTest {
  protected:
    /// Writes the file into the folder, starts the program, and returns the one note.
    NoteWindow Open(const std::string& bytes) {
        path_ = Profile().AddNote(L"note.qln", bytes);
        before_ = MarkOf(path_);
        Start();
        const std::vector<NoteWindow> notes = NotesOf(Quillo());
        EXPECT_EQ(notes.size(), 1U);
        return notes.empty() ? NoteWindow() : notes.front();
    }
    /// Ends the program; fails the test if the file was written again.
    void QuitAndExpectUntouched() {
        Quit();
        EXPECT_TRUE(MarkOf(path_) == before_)
            << "the file of an untouched note was written again: " << ReadBytes(path_);
        EXPECT_EQ(StorageCopies().size(), 1U);
    }
    static void ExpectPlace(const NoteWindow& note, int left, int top, int width, int height) {
        const RECT area = note.Rectangle();
        EXPECT_EQ(area.left, PixelsOfTwips(left));
        EXPECT_EQ(area.top, PixelsOfTwips(top));
        EXPECT_EQ(note.Width(), PixelsOfTwips(width));
        EXPECT_EQ(note.Height(), PixelsOfTwips(height));
    }
    static void ExpectColors(const NoteWindow& note, COLORREF face, COLORREF border) {
        EXPECT_TRUE(Eventually([&] { return note.TextBackground() == face; })) << std::hex << note.TextBackground();
        EXPECT_TRUE(Eventually([&] { return note.FaceColor() == face; })) << std::hex << note.FaceColor();
        EXPECT_TRUE(Eventually([&] { return note.OutlineColor() == border; })) << std::hex << note.OutlineColor();
    }

    std::wstring path_;
    FileMark before_;
};

TEST_F(NoteFiles, APlainTextLooksLikeANewNoteAndIsNotChanged) {
    const NoteWindow note = Open("caf\xE9\r\nzwei\r\n");
    EXPECT_EQ(note.Text(), L"caf\u00E9\r\nzwei\r\n");
    EXPECT_TRUE(note.IsVisible());
    EXPECT_EQ(note.Width(), PixelsOfTwips(2820));
    EXPECT_EQ(note.Height(), PixelsOfTwips(2445));
    const RECT area = note.Rectangle();
    const int farthest = PixelsOfTwips(750) + 1;
    EXPECT_NEAR((area.left + area.right) / 2, GetSystemMetrics(SM_CXSCREEN) / 2, farthest);
    EXPECT_NEAR((area.top + area.bottom) / 2, GetSystemMetrics(SM_CYSCREEN) / 2, farthest);
    ExpectColors(note, kDefaultNote, kDefaultBorder);
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, APlainTextIsStoredInPlaceOnceItIsChanged) {
    const NoteWindow note = Open("plain\r\n");
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L"more");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"plain\r\nmore"; }));
    const RECT area = note.Rectangle();
    NoteFile stored{"plain\r\nmore"};
    stored.position = PositionOfPixels(area.left, area.top, note.Width(), note.Height());
    Quit();
    EXPECT_EQ(ReadBytes(path_), stored.Bytes());
    EXPECT_EQ(StorageCopies().size(), 1U);
}

TEST_F(NoteFiles, ATaggedFileIsRestoredUnchanged) {
    const NoteWindow note = Open(NoteFile{"caf\xE9 \x80\r\n\r\ndrei"}.Bytes());
    EXPECT_EQ(note.Text(), L"caf\u00E9 \u20AC\r\n\r\ndrei");
    EXPECT_TRUE(note.IsVisible());
    EXPECT_FALSE(note.IsTopmost());
    EXPECT_EQ(note.Alpha().value_or(255), 255);
    EXPECT_FALSE(note.HasScrollBar());
    ExpectPlace(note, 3000, 3000, 3000, 2400);
    ExpectColors(note, kDefaultNote, kDefaultBorder);
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, TagsInCapitalsAreFound) {
    const NoteWindow note = Open(
        "LOUD\r\n<QUILLO><POSITION>4500,1500,3600,3000</POSITION><APPEARANCE>TRUE,TRUE,255,65280,16711680,0"
        "</APPEARANCE><REMINDER></REMINDER><nodelete></nodelete></QUILLO>");
    EXPECT_EQ(note.Text(), L"LOUD");
    ExpectPlace(note, 4500, 1500, 3600, 3000);
    ExpectColors(note, 255, 65280);
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, ABrokenBlockIsReadAsFarAsPossible) {
    const NoteWindow note = Open(
        "torn\r\n<quillo><position>3000,oops,3000,2400<appearance></position>"
        "<appearance>False,True,255,65280,0</appearance><nodelete></quillo>");
    EXPECT_EQ(note.Text(), L"torn");
    EXPECT_TRUE(note.IsVisible());
    EXPECT_EQ(note.Rectangle().left, PixelsOfTwips(3000));
    EXPECT_EQ(note.Width(), PixelsOfTwips(3000));
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, ABlockWithoutAnEndIsText) {
    const std::string bytes = "half a file\r\n<quillo><position>1,2,3,4</posi";
    const NoteWindow note = Open(bytes);
    EXPECT_EQ(note.Text(), Widen(bytes));
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, TextAfterTheBlockIsKept) {
    const NoteWindow note = Open(NoteFile{"before"}.Bytes() + "\r\nafter");
    EXPECT_EQ(note.Text(), L"before\r\n\r\nafter");
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, ANoteOffTheScreenIsMovedOntoIt) {
    NoteFile file{"lost"};
    file.position = PositionOfPixels(90000, -5000, 200, 160);
    const NoteWindow note = Open(file.Bytes());
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const RECT area = note.Rectangle();
    EXPECT_EQ(area.right, work.right);
    EXPECT_EQ(area.top, work.top);
    EXPECT_EQ(note.Width(), 200);
    EXPECT_EQ(note.Height(), 160);
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, ANoteOffTheScreenStaysWithDoNotAdjustNotes) {
    Profile().SetNumber(L"Do not adjust notes", 1);
    NoteFile file{"far away"};
    file.position = PositionOfPixels(-100, 1000, 200, 160);
    const NoteWindow note = Open(file.Bytes());
    EXPECT_EQ(note.Rectangle().left, -100);
    EXPECT_EQ(note.Rectangle().top, 1000);
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, AHiddenNoteStaysHidden) {
    NoteFile file{"hidden"};
    file.appearance = "False,False,14155262,3723262,0,1";
    const NoteWindow note = Open(file.Bytes());
    EXPECT_FALSE(note.IsVisible());
    EXPECT_EQ(note.Text(), L"hidden");
    EXPECT_FALSE(Quillo().HasShownBalloon()) << "notes of files never call for it";
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, ANoteHasItsOwnColors) {
    NoteFile file{"MMMMMMMM"};
    file.appearance = "True,True,16777088,128,16711680,0";
    const NoteWindow note = Open(file.Bytes());
    ExpectColors(note, 16777088, 128);
    EXPECT_TRUE(Eventually([&] { return note.TextPixels(16711680) > 0; })) << "the text has its color";
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, WithoutOwnColorsTheSettingsDecide) {
    Profile().SetNumber(L"Note color", 0x404040);
    Profile().SetNumber(L"Note border color", 0);  // present: black, not the default
    Profile().SetNumber(L"Note text color", 0xFFFFFF);
    NoteFile file{"MMMMMMMM"};
    file.appearance = "True,False,255,255,255,0";
    const NoteWindow note = Open(file.Bytes());
    ExpectColors(note, 0x404040, 0);
    EXPECT_TRUE(Eventually([&] { return note.TextPixels(0xFFFFFF) > 0; }));
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, LargeTextHasTallerLines) {
    NoteFile small{"one\r\ntwo"};
    NoteFile large{"large\r\ntwo"};
    large.appearance = "True,False,14155262,3723262,0,0";
    Profile().AddNote(L"large.qln", large.Bytes());
    Profile().AddNote(L"small.qln", small.Bytes());
    Start();
    const int smallHeight = FindNote(Quillo(), L"one\r\ntwo").LineHeight();
    const int largeHeight = FindNote(Quillo(), L"large\r\ntwo").LineHeight();
    EXPECT_GE(smallHeight, Px(8)) << "8 points are 11 pixels, and a line is taller";
    EXPECT_NEAR(largeHeight, smallHeight * 1.5, smallHeight * 0.2);
}

TEST_F(NoteFiles, ANoteWithAReminderShowsIt) {
    NoteFile file{"remember"};
    file.reminder = "#402133.25";  // a day in the year 3000
    file.appearance = "False,True,16777215,255,0,0";
    const NoteWindow note = Open(file.Bytes());
    const auto borderPixelsInFoot = [&note] {
        int count = 0;
        for (int x = Px(4); x < Px(100); ++x) {
            for (int y = note.Height() - Px(11); y < note.Height() - 2; ++y) {
                HDC screen = GetDC(nullptr);
                const POINT at = note.OnScreen(x, y);
                const COLORREF pixel = GetPixel(screen, at.x, at.y);
                ReleaseDC(nullptr, screen);
                count += GetRValue(pixel) > 200 && GetGValue(pixel) < 128 ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_TRUE(Eventually([&] { return borderPixelsInFoot() > 30; })) << "the label is in the border's color";
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, APositionWithAFractionIsRoundedOnTheScreenOnly) {
    NoteFile file{"fraction"};
    file.position = "3000.4,2999.75,3000.5,2400.1";
    const NoteWindow note = Open(file.Bytes());
    ExpectPlace(note, 3000, 3000, 3000, 2400);
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, AnEmptyAppearanceMeansAnOrdinaryNote) {
    NoteFile file{"bare"};
    file.appearance = "";
    const NoteWindow note = Open(file.Bytes());
    EXPECT_TRUE(note.IsVisible());
    ExpectPlace(note, 3000, 3000, 3000, 2400);
    ExpectColors(note, kDefaultNote, kDefaultBorder);
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, AMissingAppearanceMeansAnOrdinaryNote) {
    const NoteWindow note = Open("bare\r\n<quillo><position>3000,3000,3000,2400</position><nodelete></quillo>");
    EXPECT_TRUE(note.IsVisible());
    ExpectPlace(note, 3000, 3000, 3000, 2400);
    ExpectColors(note, kDefaultNote, kDefaultBorder);
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, AnAppearanceOfThreeFieldsMakesTheRestBlack) {
    NoteFile file{"red"};
    file.appearance = "True,True,255";
    const NoteWindow note = Open(file.Bytes());
    EXPECT_TRUE(note.IsVisible());
    ExpectColors(note, 255, 0);
    QuitAndExpectUntouched();
}

TEST_F(NoteFiles, AFirstLineBreakIsLostAndALastOneKept) {
    NoteFile file{"\r\nsecond line\r\n"};
    const NoteWindow note = Open(file.Bytes());
    EXPECT_EQ(note.Text(), L"second line\r\n");
    QuitAndExpectUntouched();
}

}  // namespace
}  // namespace quillo::e2e
