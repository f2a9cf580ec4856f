#include <gtest/gtest.h>

#include "accessible_reader.h"
#include "note_form_fixture.h"
#include "notes/note_form.h"
#include "platform/gdi_canvas.h"
#include "platform/ui_timer.h"
#include "testing/note_interfaces.h"

namespace quillo {
namespace {

using windows_tests::ChildId;
using windows_tests::NoteFormTest;
using windows_tests::PaintNow;
using windows_tests::PlaceIn;
using windows_tests::TestNote;

TEST_F(NoteFormTest, TheShadowOfNotesFollowsTheSystemsSetting) {
    BOOL before = FALSE;
    SystemParametersInfoW(SPI_GETDROPSHADOW, 0, &before, 0);
    const auto shadowed = [&] { return (GetClassLongPtrW(one_.Window(), GCL_STYLE) & CS_DROPSHADOW) != 0; };
    for (const bool shadows : {true, false, true}) {
        // The value is in the place of a pointer.
        SystemParametersInfoW(SPI_SETDROPSHADOW, 0, reinterpret_cast<void*>(INT_PTR{shadows}), 0);
        SendMessageW(one_.Window(), WM_SETTINGCHANGE, SPI_SETDROPSHADOW, 0);
        BOOL now = FALSE;
        SystemParametersInfoW(SPI_GETDROPSHADOW, 0, &now, 0);
        EXPECT_EQ(shadowed(), now != FALSE);
    }
    SystemParametersInfoW(SPI_SETDROPSHADOW, 0, reinterpret_cast<void*>(INT_PTR{before}), 0);
}

TEST_F(NoteFormTest, PaintsBorderFaceBarAndGrip) {
    Show();
    const int w = ClientSize().width;
    const int h = ClientSize().height;
    const COLORREF border = RGB(0xFE, 0xCF, 0x38);
    const COLORREF face = RGB(0xFE, 0xFD, 0xD7);
    for (const Point at : {Point{0, 0}, Point{w - 1, 0}, Point{0, h - 1}, Point{w / 2, 0}, Point{0, h / 2},
                           Point{w - 1, h / 2}, Point{w / 2, h - 1}}) {
        EXPECT_EQ(Pixel(at), border) << at.x << ", " << at.y;
    }
    EXPECT_EQ(Pixel(Point{3, h - 3}), face) << "the foot";
    EXPECT_EQ(Pixel(Point{w / 2, h / 2}), face) << "the text box is flush with the note";
    const Rect bar = LayOutNote(ClientSize(), scale_).dragBar;
    const bool active = GetActiveWindow() == one_.Window();
    const DragBarPaint paint =
        DragBarColors(world_.settings.noteColor, world_.settings.noteBorderColor, BarStyle::Full, active);
    EXPECT_EQ(Pixel(Point{w / 2, bar.top}), ToColorRef(paint.top));
    EXPECT_EQ(Pixel(Point{w / 2, bar.Bottom() - 1}), ToColorRef(paint.bottom));
    // The three lines of the grip cross the column next to the right edge.
    int strokes = 0;
    for (int y = h - scale_.Px(10); y < h - 1; ++y) strokes += Pixel(Point{w - scale_.Px(2), y}) == border ? 1 : 0;
    EXPECT_GE(strokes, 2);
}

TEST_F(NoteFormTest, ASubtleTitleBarIsCalmerAtOnce) {
    Show();
    const auto bar = [&] { return Pixel(Point{ClientSize().width / 2, LayOutNote(ClientSize(), scale_).dragBar.top}); };
    const COLORREF full = bar();
    world_.settings.highContrastOff = true;
    note_.UpdateColors();
    PaintNow(one_.Window());
    EXPECT_NE(bar(), full);
    const DragBarPaint subtle = DragBarColors(world_.settings.noteColor, world_.settings.noteBorderColor,
                                              BarStyle::Subtle, GetActiveWindow() == one_.Window());
    EXPECT_EQ(bar(), ToColorRef(subtle.top));
    world_.settings.highContrastOff = false;
    note_.UpdateColors();
    PaintNow(one_.Window());
    EXPECT_EQ(bar(), full);
}

TEST_F(NoteFormTest, TheReminderIsWrittenIntoTheFoot) {
    Show();
    const Size size = ClientSize();
    const auto drawn = [&] {
        int pixels = 0;
        for (int y = size.height - scale_.Px(11); y < size.height - 1; ++y) {
            for (int x = 2; x < size.width / 2; ++x) pixels += Pixel(Point{x, y}) != RGB(0xFE, 0xFD, 0xD7) ? 1 : 0;
        }
        return pixels;
    };
    EXPECT_EQ(drawn(), 0);
    AsReminderOwner(note_).SetReminder(ToDaySerial({2026, 11, 21, 17, 5, 0}));
    PaintNow(one_.Window());
    EXPECT_GT(drawn(), 20);
    note_.CancelReminder();
    PaintNow(one_.Window());
    EXPECT_EQ(drawn(), 0);
}

TEST_F(NoteFormTest, NewColorsReachTheScreen) {
    Show();
    AsColorTarget(note_).SetColor(true, ColorWord::FromRgb(10, 200, 30), ColorWord::FromRgb(200, 0, 0),
                                  ColorWord::FromRgb(0, 0, 9));
    PaintNow(one_.Window());
    const Size size = ClientSize();
    EXPECT_EQ(Pixel(Point{0, 0}), RGB(200, 0, 0));
    EXPECT_EQ(Pixel(Point{3, size.height - 3}), RGB(10, 200, 30));
    EXPECT_EQ(Pixel(Point{size.width / 2, size.height / 2}), RGB(10, 200, 30));
}

TEST_F(NoteFormTest, SystemColorsAreResolved) {
    Show();
    const ColorWord window{0x80000000U | COLOR_WINDOW};
    const ColorWord edge{0x80000000U | COLOR_HIGHLIGHT};
    AsColorTarget(note_).SetColor(true, window, edge, ColorWord{});
    PaintNow(one_.Window());
    EXPECT_EQ(Pixel(Point{0, 0}), GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(Pixel(Point{3, ClientSize().height - 3}), GetSysColor(COLOR_WINDOW));
}

TEST_F(NoteFormTest, ASignShowsThatTheNoteIsNotSaved) {
    Show();
    const NoteLayout layout = LayOutNote(ClientSize(), scale_);
    const Point glyph{layout.saveSign.left + scale_.Px(6), layout.saveSign.top + scale_.Px(14)};
    const COLORREF bar = Pixel(glyph);
    EXPECT_EQ(one_.Child(ChildId::kSaveSign), nullptr);
    form_.ShowSaveProblem(u"The disk is full.");
    const HWND sign = one_.Child(ChildId::kSaveSign);
    ASSERT_NE(sign, nullptr);
    EXPECT_NE(IsWindowVisible(sign), FALSE);
    EXPECT_EQ(PlaceIn(one_.Window(), sign), layout.saveSign);
    PaintNow(one_.Window());
    EXPECT_NE(Pixel(glyph), bar);
    const windows_tests::Reader reader(sign);
    EXPECT_EQ(reader.Name(), u"The disk is full.");
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_ALERT);
    form_.ShowSaveProblem(u"The folder is gone.");
    EXPECT_EQ(reader.Name(), u"The folder is gone.");
    Resize(Size{80, 56});
    EXPECT_EQ(PlaceIn(one_.Window(), sign), LayOutNote(Size{80, 56}, scale_).saveSign);
    form_.ShowSaveProblem(u"");
    EXPECT_EQ(IsWindowVisible(sign), FALSE);
    form_.ShowSaveProblem(u"The disk is full.");
    EXPECT_NE(IsWindowVisible(sign), FALSE) << "and again at the next failure";
}

TEST_F(NoteFormTest, TheStripMovesTheNoteUnderItsSignToo) {
    Show();
    form_.ShowSaveProblem(u"The disk is full.");
    const HWND sign = one_.Child(ChildId::kSaveSign);
    bool moving = false;
    int looks = 0;
    UiTimer watch([&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetCurrentThreadId(), &info);
        if ((info.flags & GUI_INMOVESIZE) == 0 && ++looks < 500) return;
        moving = info.hwndMoveSize == one_.Window();
        PostMessageW(one_.Window(), WM_KEYDOWN, VK_ESCAPE, 1);
    });
    watch.Start(20);
    SendMessageW(sign, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_TRUE(moving);
}

TEST_F(NoteFormTest, TranslucencyIsAppliedAndRemoved) {
    const auto layered = [&] { return (GetWindowLongPtrW(one_.Window(), GWL_EXSTYLE) & WS_EX_LAYERED) != 0; };
    EXPECT_FALSE(layered());
    for (const int alpha : {192, 1, 255}) {
        form_.SetOpacity(alpha);
        ASSERT_TRUE(layered());
        BYTE stored = 0;
        DWORD flags = 0;
        ASSERT_NE(GetLayeredWindowAttributes(one_.Window(), nullptr, &stored, &flags), 0);
        EXPECT_EQ(stored, alpha);
        EXPECT_EQ(flags, DWORD{LWA_ALPHA});
    }
    form_.SetOpacity(std::nullopt);
    EXPECT_FALSE(layered());
}

TEST_F(NoteFormTest, ThePinIsShownAndKeepsTheNoteOnTop) {
    const auto topmost = [&] { return (GetWindowLongPtrW(one_.Window(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; };
    form_.Show();
    Click(one_.Child(ChildId::kPushpin));
    EXPECT_TRUE(note_.Data().Pinned);
    EXPECT_TRUE(topmost());
    note_.Popup();
    EXPECT_TRUE(topmost());
    Click(one_.Child(ChildId::kPushpin));
    EXPECT_FALSE(note_.Data().Pinned);
    EXPECT_FALSE(topmost());
    note_.Popup();
    EXPECT_FALSE(topmost()) << "in front, but not for good";
}

TEST_F(NoteFormTest, TheScrollBarFollowsItsOption) {
    const auto shown = [&] { return (GetWindowLongPtrW(Box(), GWL_STYLE) & WS_VSCROLL) != 0; };
    std::u16string lines;
    for (int i = 0; i < 200; ++i) lines += u"line\r\n";
    EXPECT_FALSE(shown());
    ASSERT_TRUE(form_.SetText(lines));
    EXPECT_FALSE(shown()) << "a long text does not bring it back";
    Resize(Size{300, 300});
    EXPECT_FALSE(shown()) << "nor does a new size";
    SendMessageW(Box(), WM_CHAR, u'x', 0);
    EXPECT_FALSE(shown()) << "nor typing";
    world_.settings.showScrollBars = true;
    note_.UpdateColors();
    EXPECT_TRUE(shown());
    world_.settings.showScrollBars = false;
    note_.UpdateColors();
    EXPECT_FALSE(shown());
    EXPECT_EQ(form_.Text().size(), lines.size() + 1);
}

TEST_F(NoteFormTest, TogglingTheScrollBarKeepsUndoCaretAndPlace) {
    form_.Show();
    std::u16string lines;
    for (int i = 0; i < 200; ++i) lines += u"line\r\n";
    ASSERT_TRUE(form_.SetText(lines));
    const HWND before = Box();
    SendMessageW(Box(), EM_SETSEL, 600, 600);
    SendMessageW(Box(), WM_CHAR, u'x', 0);
    SendMessageW(Box(), EM_SETSEL, 603, 605);
    SendMessageW(Box(), EM_LINESCROLL, 0, 90 - SendMessageW(Box(), EM_GETFIRSTVISIBLELINE, 0, 0));
    for (const bool shown : {true, false}) {
        world_.settings.showScrollBars = shown;
        note_.UpdateColors();
        EXPECT_EQ((GetWindowLongPtrW(Box(), GWL_STYLE) & WS_VSCROLL) != 0, shown);
        EXPECT_EQ(Box(), before) << "the same control";
        EXPECT_EQ(SendMessageW(Box(), EM_GETFIRSTVISIBLELINE, 0, 0), 90);
        EXPECT_EQ(SendMessageW(Box(), EM_GETSEL, 0, 0), MAKELRESULT(603, 605));
        EXPECT_NE(SendMessageW(Box(), EM_CANUNDO, 0, 0), 0);
    }
    RECT client{};
    GetClientRect(Box(), &client);
    EXPECT_EQ(client.right, PlaceIn(one_.Window(), Box()).width) << "the whole width is text again";
    SendMessageW(Box(), EM_UNDO, 0, 0);
    EXPECT_EQ(form_.Text(), lines);
}

TEST_F(NoteFormTest, EachSizeOfItsIconIsAPictureOfItsOwnAtEveryResolution) {
    const auto edge = [&](WPARAM kind) {
        ICONINFO info{};
        const auto icon = reinterpret_cast<HICON>(SendMessageW(one_.Window(), WM_GETICON, kind, 0));
        EXPECT_NE(GetIconInfo(icon, &info), FALSE);
        BITMAP picture{};
        GetObjectW(info.hbmColor, sizeof picture, &picture);
        DeleteObject(info.hbmColor);
        DeleteObject(info.hbmMask);
        return static_cast<int>(picture.bmWidth);
    };
    for (const int dpi : {96, 144, 192, 96}) {
        RECT suggested{100, 100, 282, 245};
        SendMessageW(one_.Window(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
        EXPECT_EQ(edge(ICON_SMALL), SmallIconEdge(Scale(dpi))) << dpi;
        EXPECT_EQ(edge(ICON_SMALL2), SmallIconEdge(Scale(dpi))) << dpi;
        EXPECT_EQ(edge(ICON_BIG), LargeIconEdge(Scale(dpi))) << dpi;
    }
    EXPECT_NE(edge(ICON_SMALL), edge(ICON_BIG));
    TestNote two(world_, u"two");
    ASSERT_TRUE(two.Create());
    const auto large = [](HWND note) { return SendMessageW(note, WM_GETICON, ICON_BIG, 0); };
    EXPECT_EQ(large(one_.Window()), large(two.Window())) << "fifty notes do not load fifty icons";
    EXPECT_EQ(GetClassLongPtrW(one_.Window(), GCLP_HICON), 0U) << "no icon of another size replaces it";
}

TEST_F(NoteFormTest, TheFontFollowsTheSettingsAndLargeTextIsBold) {
    const auto font = [&] {
        LOGFONTW description{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(Box(), WM_GETFONT, 0, 0)), sizeof description, &description);
        return description;
    };
    EXPECT_STREQ(font().lfFaceName, L"Tahoma");
    EXPECT_EQ(font().lfHeight, -static_cast<LONG>(8.0 * scale_.Dpi() / 72 + 0.5));
    EXPECT_EQ(font().lfWeight, FW_NORMAL);
    note_.Perform(NoteAction::ToggleLargeText);
    EXPECT_EQ(font().lfHeight, -static_cast<LONG>(12.0 * scale_.Dpi() / 72 + 0.5));
    EXPECT_EQ(font().lfWeight, FW_BOLD);
    note_.Perform(NoteAction::ToggleLargeText);
    world_.settings.noteFont = FontSetting{u"Courier New", 10, true, true, true, true, 0};
    note_.UpdateColors();
    EXPECT_STREQ(font().lfFaceName, L"Courier New");
    EXPECT_NE(font().lfItalic, 0);
    EXPECT_NE(font().lfUnderline, 0);
    EXPECT_NE(font().lfStrikeOut, 0);
    EXPECT_EQ(font().lfWeight, FW_BOLD);
}

TEST_F(NoteFormTest, TheTextBoxHasItsMarginsAndOneTabStop) {
    Resize(Size{400, 300});
    form_.Show();
    for (const bool large : {true, false}) {
        note_.Perform(NoteAction::ToggleLargeText);
        ASSERT_EQ(note_.Data().LargeText, large);
        const auto margins = static_cast<DWORD>(SendMessageW(Box(), EM_GETMARGINS, 0, 0));
        EXPECT_EQ(LOWORD(margins), scale_.Px(6));
        EXPECT_EQ(HIWORD(margins), scale_.Px(6));
    }
    ASSERT_TRUE(form_.SetText(u"\ta\t\tb"));
    const auto x = [&](WPARAM character) { return LOWORD(SendMessageW(Box(), EM_POSFROMCHAR, character, 0)); };
    const int start = x(0);
    const int step = x(1) - start;
    EXPECT_GT(step, 0);
    EXPECT_LT(step, scale_.Px(40)) << "8 dialog units, not the 32 of a plain box";
    EXPECT_NEAR(x(4) - start, 3 * step, 2) << "the same step again and again";
}

}  // namespace
}  // namespace quillo
