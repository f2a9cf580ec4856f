#include "notes/note_form.h"

#include <gtest/gtest.h>

#include "accessible_reader.h"
#include "note_form_fixture.h"
#include "platform/text_tools.h"
#include "testing/note_interfaces.h"

namespace quillo {
namespace {

using windows_tests::ChildId;
using windows_tests::NoteFormTest;
using windows_tests::PlaceIn;
using windows_tests::PumpUntil;
using windows_tests::PumpWaiting;
using windows_tests::TestNote;

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
    AsReminderOwner(note_).SetReminder(ToDaySerial({2031, 5, 14, 14, 30, 0}));
    EXPECT_EQ(reader.Description(), u"Reminder: Wednesday, 5/14/2031, 2:30:00 PM");
    LONG children = 0;
    EXPECT_EQ(reader->get_accChildCount(&children), S_OK);
    EXPECT_GE(children, 4) << "the text box and the buttons are reached through the note";
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
    AsReminderOwner(note_).SetReminder(ToDaySerial({2026, 11, 22, 9, 0, 0}));
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
