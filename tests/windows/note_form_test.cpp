#include "notes/note_form.h"

#include <gtest/gtest.h>

#include "accessible_reader.h"
#include "note_fixture.h"
#include "platform/dpi.h"
#include "platform/gdi_canvas.h"
#include "platform/text_tools.h"
#include "platform/ui_timer.h"
#include "platform/wide.h"

namespace quillo {
namespace {

using windows_tests::ChildId;
using windows_tests::NoteWorldForTests;
using windows_tests::PaintNow;
using windows_tests::PixelOf;
using windows_tests::PlaceIn;
using windows_tests::PumpUntil;
using windows_tests::PumpWaiting;
using windows_tests::TestNote;

class NoteFormTest : public testing::Test {
  protected:
    NoteFormTest() {
        EXPECT_TRUE(one_.Create());
        EXPECT_TRUE(one_.Settle());
        form_.MoveTo(TwipsRect{3000, 3000, 2820, 2445});
    }

    void Resize(Size size) {
        SetWindowPos(one_.Window(), nullptr, 0, 0, size.width, size.height, SWP_NOMOVE | SWP_NOZORDER);
    }
    [[nodiscard]] Size ClientSize() const {
        RECT client{};
        GetClientRect(one_.Window(), &client);
        return Size{client.right, client.bottom};
    }
    [[nodiscard]] LRESULT HitTest(Point at) const {
        RECT window{};
        GetWindowRect(one_.Window(), &window);
        return SendMessageW(one_.Window(), WM_NCHITTEST, 0, MAKELPARAM(window.left + at.x, window.top + at.y));
    }
    void Show() {
        form_.Show();
        form_.BringToFront(true);
        PaintNow(one_.Window());
    }
    [[nodiscard]] COLORREF Pixel(Point at) const { return PixelOf(one_.Window(), at); }
    [[nodiscard]] HWND Box() const { return one_.Child(ChildId::kMessageBox); }
    void Click(HWND button, WPARAM keys = 0) const {
        SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON | keys, MAKELPARAM(5, 5));
        SendMessageW(button, WM_LBUTTONUP, keys, MAKELPARAM(5, 5));
    }

    NoteWorldForTests world_;
    TestNote one_{world_, u"one"};
    NoteForm& form_{one_.form};
    OpenNote& note_{one_.note};
    Scale scale_{SystemScale()};
};

TEST_F(NoteFormTest, ANewNoteIsHiddenAndHasItsDesignSizeNearTheMiddle) {
    TestNote fresh(world_, u"fresh");
    ASSERT_TRUE(fresh.Create());
    EXPECT_FALSE(fresh.form.IsVisible());
    const TwipsRect place = fresh.form.Rectangle();
    EXPECT_NEAR(place.width, 2820, 15);
    EXPECT_NEAR(place.height, 2445, 15);
    const float middle = scale_.ToTwips(Pixels{GetSystemMetrics(SM_CXSCREEN)}).value / 2;
    EXPECT_NEAR(place.left + place.width / 2, middle, 30) << "random numbers of one half";
    EXPECT_FALSE(fresh.note.Data().Changed);
}

TEST_F(NoteFormTest, AWindowIsMadeWhereItsNoteBelongs) {
    NotePosition position{1500, 750, 3000, 2400};
    TestNote placed(world_, u"placed");
    world_.random.draws = 0;
    ASSERT_TRUE(placed.form.Create(position));
    EXPECT_EQ(world_.random.draws, 2) << "drawn for every window";
    const TwipsRect made = placed.form.Rectangle();
    EXPECT_EQ(made, (TwipsRect{1500, 750, 3000, 2400}));
    placed.form.MoveTo(made);
    EXPECT_EQ(placed.form.Rectangle(), made);
}

TEST_F(NoteFormTest, WhatAPositionLeavesOutIsThatOfANewNote) {
    TestNote fresh(world_, u"fresh");
    world_.random.Queue({0.25, 0.75, 0.25, 0.75, 0.25, 0.75});
    ASSERT_TRUE(fresh.form.Create());
    const TwipsRect ofNew = fresh.form.Rectangle();
    TestNote moved(world_, u"moved");
    ASSERT_TRUE(moved.form.Create(NotePosition{1500, {}, {}, 3000}));
    EXPECT_EQ(moved.form.Rectangle(), (TwipsRect{1500, ofNew.top, ofNew.width, 3000}));
    TestNote empty(world_, u"empty");
    ASSERT_TRUE(empty.form.Create(NotePosition{}));
    EXPECT_EQ(empty.form.Rectangle(), ofNew);
}

TEST_F(NoteFormTest, TheMonitorsAreAskedForOnceUntilTheSystemSaysThatTheyChanged) {
    TestNote two(world_, u"two");
    TestNote three(world_, u"three");
    ASSERT_TRUE(two.form.Create(NotePosition{1500, 750, 3000, 2400}));
    ASSERT_TRUE(three.form.Create());
    note_.Popup();
    EXPECT_EQ(world_.monitorQuestions, 1);
    for (const UINT change : {WM_DISPLAYCHANGE, WM_SETTINGCHANGE}) {
        world_.monitorQuestions = 0;
        SendMessageW(one_.Window(), change, 0, 0);
        note_.Popup();
        form_.MoveTo(TwipsRect{1500, 750, 3000, 2400});
        EXPECT_EQ(world_.monitorQuestions, 1) << change;
    }
}

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

TEST_F(NoteFormTest, OnlyTheFirstNoteOfABatchAsksWhetherItIsInFront) {
    TestNote two(world_, u"two");
    ASSERT_TRUE(two.Create());
    const auto isTopOfAll = [](HWND window) {
        HWND above = GetWindow(window, GW_HWNDPREV);
        while (above != nullptr &&
               (IsWindowVisible(above) == 0 || (GetWindowLongPtrW(above, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0))
            above = GetWindow(above, GW_HWNDPREV);
        return above == nullptr;
    };
    {
        const NoteBatch::Scope batch(world_.batch);
        note_.Popup();
        EXPECT_TRUE(isTopOfAll(one_.Window()));
        two.note.Popup();
        EXPECT_TRUE(isTopOfAll(two.Window()));
        note_.Popup();
        EXPECT_TRUE(isTopOfAll(two.Window())) << "one is known to be in front";
    }
    note_.Popup();
    EXPECT_TRUE(isTopOfAll(one_.Window())) << "the batch is over";
}

TEST_F(NoteFormTest, ThePartsAreLaidOutOnlyForAnotherSize) {
    form_.Show();
    MoveWindow(Box(), 0, 0, 10, 10, FALSE);
    form_.Hide();
    form_.MoveTo(TwipsRect{1500, 750, 2820, 2445});
    form_.Show();
    EXPECT_EQ(PlaceIn(one_.Window(), Box()), (Rect{0, 0, 10, 10})) << "nothing has asked for another layout";
    form_.Hide();
    form_.MoveTo(TwipsRect{1500, 750, 3000, 2400});
    form_.Show();
    EXPECT_EQ(PlaceIn(one_.Window(), Box()), LayOutNote(ClientSize(), scale_).messageBox);
}

TEST_F(NoteFormTest, PlacesAreRestoredInTwips) {
    for (const TwipsRect place : {TwipsRect{1500, 750, 2820, 2445}, TwipsRect{-300, -150, 6000, 4500}}) {
        form_.MoveTo(place);
        const TwipsRect read = form_.Rectangle();
        EXPECT_NEAR(read.left, place.left, 8);
        EXPECT_NEAR(read.top, place.top, 8);
        EXPECT_NEAR(read.width, place.width, 8);
        EXPECT_NEAR(read.height, place.height, 8);
        form_.MoveTo(read);
        EXPECT_EQ(form_.Rectangle(), read);
    }
    EXPECT_FALSE(note_.Data().Changed) << "the program moved it";
}

TEST_F(NoteFormTest, ThePartsFollowEverySize) {
    form_.Show();
    for (const Size size : {Size{188, 163}, Size{400, 300}, Size{80, 56}, Size{30, 20}, Size{1000, 40}, Size{1, 1}}) {
        Resize(size);
        ASSERT_EQ(ClientSize(), size);
        const NoteLayout layout = LayOutNote(size, scale_);
        EXPECT_EQ(PlaceIn(one_.Window(), Box()), layout.messageBox) << size.width << " x " << size.height;
        EXPECT_EQ(PlaceIn(one_.Window(), one_.Child(ChildId::kCloseButton)), layout.closeButton);
        EXPECT_EQ(PlaceIn(one_.Window(), one_.Child(ChildId::kPushpin)), layout.pushpin);
        EXPECT_EQ(PlaceIn(one_.Window(), one_.Child(ChildId::kMenuButton)), layout.menuButton);
    }
}

TEST_F(NoteFormTest, OnlyTheFootResizes) {
    const Size size = ClientSize();
    const int w = size.width;
    const int h = size.height;
    const int edge = scale_.Px(12);
    EXPECT_EQ(HitTest(Point{w - 1, h - 1}), HTBOTTOMRIGHT);
    EXPECT_EQ(HitTest(Point{w - edge + 1, h - edge + 1}), HTBOTTOMRIGHT);
    EXPECT_EQ(HitTest(Point{w - edge - 1, h - 1}), HTBOTTOM);
    EXPECT_EQ(HitTest(Point{w - edge, h - 1}), HTBOTTOM);
    EXPECT_EQ(HitTest(Point{0, h - 1}), HTBOTTOM);
    EXPECT_EQ(HitTest(Point{w - 1, h - edge}), HTCLIENT);
    EXPECT_EQ(HitTest(Point{5, h - edge}), HTCLIENT);
    EXPECT_EQ(HitTest(Point{0, 0}), HTCLIENT);
    EXPECT_EQ(HitTest(Point{w / 2, 5}), HTCLIENT);
}

TEST_F(NoteFormTest, HitTestsWorkLeftOfAndAboveTheScreen) {
    form_.MoveTo(TwipsRect{-600, -600, 2820, 2445});
    const Size size = ClientSize();
    EXPECT_EQ(HitTest(Point{1, size.height - 1}), HTBOTTOM);
    EXPECT_EQ(HitTest(Point{1, 1}), HTCLIENT);
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
    note_.SetReminder(ToDaySerial({2026, 11, 21, 17, 5, 0}));
    PaintNow(one_.Window());
    EXPECT_GT(drawn(), 20);
    note_.CancelReminder();
    PaintNow(one_.Window());
    EXPECT_EQ(drawn(), 0);
}

TEST_F(NoteFormTest, NewColorsReachTheScreen) {
    Show();
    note_.SetColor(true, ColorWord::FromRgb(10, 200, 30), ColorWord::FromRgb(200, 0, 0), ColorWord::FromRgb(0, 0, 9));
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
    note_.SetColor(true, window, edge, ColorWord{});
    PaintNow(one_.Window());
    EXPECT_EQ(Pixel(Point{0, 0}), GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(Pixel(Point{3, ClientSize().height - 3}), GetSysColor(COLOR_WINDOW));
}

TEST_F(NoteFormTest, TextIsKeptWhole) {
    std::u16string large;
    while (large.size() < 1'048'576) large += u"A line of a long note.\r\n";
    const std::u16string texts[] = {u"", u"one", u"a\r\nb\tc \u00E9\u20AC", u"\u65E5\u672C \U0001F58B", large};
    for (const std::u16string& text : texts) {
        ASSERT_TRUE(form_.SetText(text));
        EXPECT_TRUE(form_.Text() == text) << text.size();
    }
    EXPECT_FALSE(note_.Data().Changed) << "the program wrote it";
}

TEST_F(NoteFormTest, ASizeBeyondTheDesktopIsLimited) {
    form_.MoveTo(TwipsRect{150, 150, 491'505, 491'505});
    RECT place{};
    GetWindowRect(one_.Window(), &place);
    EXPECT_EQ(place.right - place.left, GetSystemMetrics(SM_CXVIRTUALSCREEN));
    EXPECT_EQ(place.bottom - place.top, GetSystemMetrics(SM_CYVIRTUALSCREEN));
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

TEST_F(NoteFormTest, ATextThatDoesNotFitTheBoxIsReported) {
    ASSERT_TRUE(form_.SetText(u"before"));
    EXPECT_FALSE(form_.SetText(std::u16string(kMostNoteCharacters + 1, u'x')));
    EXPECT_EQ(form_.Text(), u"before") << "a text that is too long is not cut";
    EXPECT_FALSE(form_.InsertInFront(std::u16string(kMostNoteCharacters, u'x')));
    EXPECT_EQ(form_.Text(), u"before");
    EXPECT_FALSE(form_.SetText(std::u16string(u"a\0b", 3))) << "the control ends a text at the first NUL";
    EXPECT_EQ(SendMessageW(Box(), EM_GETLIMITTEXT, 0, 0), LRESULT{kMostNoteCharacters}) << "for typing and pasting";
}

TEST_F(NoteFormTest, TypingMarksTheNoteChangedAndSavesItAutomatically) {
    ASSERT_TRUE(form_.SetText(u"text"));
    EXPECT_FALSE(note_.Data().Changed);
    SendMessageW(Box(), EM_SETSEL, 4, 4);
    SendMessageW(Box(), WM_CHAR, u'\u65E5', 0);
    EXPECT_EQ(form_.Text(), u"text\u65E5");
    EXPECT_TRUE(note_.Data().Changed);
    ASSERT_TRUE(PumpUntil([&] { return !note_.Data().Changed; }));
    EXPECT_TRUE(world_.files.FileExists(note_.Data().StoragePath));
}

TEST_F(NoteFormTest, MovingByTheUserMarksTheNoteChanged) {
    SetWindowPos(one_.Window(), nullptr, 5, 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_FALSE(note_.Data().Changed) << "nobody moves a hidden note";
    Show();
    EXPECT_FALSE(note_.Data().Changed) << "showing is no move";
    form_.MoveTo(TwipsRect{4000, 4000, 3000, 3000});
    form_.MoveOntoScreen();
    EXPECT_FALSE(note_.Data().Changed) << "the program moved it";
    SetWindowPos(one_.Window(), nullptr, 300, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_TRUE(note_.Data().Changed);
}

TEST_F(NoteFormTest, MovesOntoTheScreenWithoutChangingItsSize) {
    form_.MoveTo(TwipsRect{-90000, 150000, 2820, 2445});
    const TwipsRect before = form_.Rectangle();
    form_.MoveOntoScreen();
    const TwipsRect after = form_.Rectangle();
    EXPECT_EQ(after.width, before.width);
    EXPECT_EQ(after.height, before.height);
    EXPECT_EQ(after.left, 0);
    EXPECT_GT(after.top, 0);
}

TEST_F(NoteFormTest, ANoteThatTheSystemMinimizesKeepsItsPlaceAndIsRestored) {
    form_.Show();
    const TwipsRect before = form_.Rectangle();
    ShowWindow(one_.Window(), SW_MINIMIZE);
    ASSERT_NE(IsIconic(one_.Window()), FALSE);
    EXPECT_EQ(form_.Rectangle(), before);
    EXPECT_TRUE(form_.IsVisible()) << "it is stored as shown";
    EXPECT_FALSE(note_.Data().Changed);
    note_.PopupByUser();
    EXPECT_EQ(IsIconic(one_.Window()), FALSE);
    EXPECT_NE(IsWindowVisible(one_.Window()), FALSE);
    EXPECT_EQ(form_.Rectangle(), before);
    EXPECT_EQ(PlaceIn(one_.Window(), Box()), LayOutNote(ClientSize(), scale_).messageBox);
    world_.settings.doNotAdjustNotes = true;
    ShowWindow(one_.Window(), SW_MINIMIZE);
    note_.Popup();
    EXPECT_EQ(IsIconic(one_.Window()), FALSE) << "also where notes are not adjusted";
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

TEST_F(NoteFormTest, TheTitleIsTheFirstWords) {
    const auto title = [&] { return WindowText(one_.Window()); };
    EXPECT_EQ(title(), u"Quillo");
    ASSERT_TRUE(form_.SetText(u"Buy milk\r\nand bread"));
    EXPECT_EQ(title(), u"Buy milk");
    SendMessageW(Box(), EM_SETSEL, 8, 8);
    SendMessageW(Box(), WM_CHAR, u'!', 0);
    EXPECT_EQ(title(), u"Buy milk!");
    ASSERT_TRUE(form_.InsertInFront(u"Today: "));
    EXPECT_EQ(title(), u"Today: Buy milk!");
    ASSERT_TRUE(form_.SetText(u""));
    EXPECT_EQ(title(), u"Quillo");
}

TEST_F(NoteFormTest, AScreenReaderGetsTheNameOfTheText) {
    ASSERT_TRUE(form_.SetText(u"Buy milk"));
    form_.Show();
    const windows_tests::Reader reader(Box());
    EXPECT_EQ(reader.Name(), u"Note text");
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_TEXT);
    EXPECT_EQ(reader.Value(), u"Buy milk");
}

TEST_F(NoteFormTest, AScreenReaderGetsTheDateOfTheReminder) {
    ASSERT_TRUE(form_.SetText(u"Buy milk"));
    form_.Show();
    const windows_tests::Reader reader(one_.Window());
    EXPECT_EQ(reader.Name(), u"Buy milk");
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_PANE);
    EXPECT_EQ(reader.Description(), u"");
    note_.SetReminder(ToDaySerial({2031, 5, 14, 14, 30, 0}));
    EXPECT_EQ(reader.Description(), u"Reminder: Wednesday, 5/14/2031, 2:30:00 PM");
    LONG children = 0;
    EXPECT_EQ(reader->get_accChildCount(&children), S_OK);
    EXPECT_GE(children, 4) << "the text box and the buttons are reached through the note";
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
    EXPECT_EQ(GetClassLongPtrW(one_.Window(), GCLP_HICON), 0U) << "no icon of another size stands in";
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
    note_.SetLargeText(true);
    EXPECT_EQ(font().lfHeight, -static_cast<LONG>(12.0 * scale_.Dpi() / 72 + 0.5));
    EXPECT_EQ(font().lfWeight, FW_BOLD);
    note_.SetLargeText(false);
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
    for (const bool large : {false, true}) {
        note_.SetLargeText(large);
        const auto margins = static_cast<DWORD>(SendMessageW(Box(), EM_GETMARGINS, 0, 0));
        EXPECT_EQ(LOWORD(margins), scale_.Px(6));
        EXPECT_EQ(HIWORD(margins), scale_.Px(6));
    }
    note_.SetLargeText(false);
    ASSERT_TRUE(form_.SetText(u"\ta\t\tb"));
    const auto x = [&](WPARAM character) { return LOWORD(SendMessageW(Box(), EM_POSFROMCHAR, character, 0)); };
    const int start = x(0);
    const int step = x(1) - start;
    EXPECT_GT(step, 0);
    EXPECT_LT(step, scale_.Px(40)) << "8 dialog units, not the 32 of a plain box";
    EXPECT_NEAR(x(4) - start, 3 * step, 2) << "the same step again and again";
}

TEST_F(NoteFormTest, AClickOnTheCloseButtonMayEndTheNote) {
    form_.Show();
    const HWND window = one_.Window();
    Click(one_.Child(ChildId::kCloseButton));  // an empty note is deleted permanently
    EXPECT_EQ(world_.removed, u"one");
    EXPECT_EQ(IsWindow(window), FALSE);
    EXPECT_EQ(form_.Handle(), nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
    PumpWaiting();
    // The object lives until its owner releases it, and answers as a note without a window.
    EXPECT_EQ(form_.Text(), u"");
    EXPECT_FALSE(form_.IsVisible());
    EXPECT_FALSE(form_.SetText(u"nothing to see"));
    form_.Repaint();
    form_.Show();
    form_.Hide();
    form_.ShowPinned(true);
    form_.SetOpacity(100);
    note_.UpdateColors();
    form_.Close();
    PumpWaiting();
}

TEST_F(NoteFormTest, AltF4IsTheCloseButton) {
    ASSERT_TRUE(form_.SetText(u"kept"));
    note_.SetReminder(ToDaySerial({2026, 11, 22, 9, 0, 0}));
    form_.Show();
    SendMessageW(one_.Window(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(form_.IsVisible());
    EXPECT_NE(form_.Handle(), nullptr) << "closing hides a note that has a reminder";
    EXPECT_EQ(world_.notice.balloons.size(), 1U);
}

TEST_F(NoteFormTest, AnotherResolutionScalesTheWindow) {
    form_.Show();
    RECT suggested{100, 100, 100 + 282, 100 + 245};
    SendMessageW(one_.Window(), WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ(ClientSize(), (Size{282, 245}));
    const NoteLayout layout = LayOutNote(Size{282, 245}, Scale(144));
    EXPECT_EQ(PlaceIn(one_.Window(), one_.Child(ChildId::kCloseButton)), layout.closeButton);
    EXPECT_EQ(PlaceIn(one_.Window(), Box()), layout.messageBox);
    EXPECT_NEAR(form_.Rectangle().width, 2820, 10) << "as large as before on paper";
    EXPECT_EQ(HitTest(Point{280, 245 - 17}), HTBOTTOMRIGHT);
    EXPECT_EQ(HitTest(Point{280, 245 - 18}), HTCLIENT);
}

TEST_F(NoteFormTest, TheTextGetsTheFocus) {
    form_.Show();
    form_.Activate();
    EXPECT_TRUE(PumpUntil([&] { return GetFocus() == Box(); }));
}

}  // namespace
}  // namespace quillo
