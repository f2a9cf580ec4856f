// Counts the system calls that make work by hand slow: typing, moving, sizing, hovering, opening the menu. No time is
// asserted.
#include <gtest/gtest.h>

#include "import_counter.h"
#include "main_form_fixture.h"
#include "mainmenu/menu_slide.h"
#include "note_fixture.h"
#include "platform/animation.h"

namespace quillo::windows_tests {
namespace {

class HandCounts : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(one_.Create());
        ASSERT_TRUE(one_.Settle());
        one_.form.MoveTo(TwipsRect{3000, 3000, 2820, 2445});
        one_.form.Show();
        PaintNow(one_.Window());
        PumpWaiting();
    }
    /// As the system does while the user drags the window or its edge.
    void Place(const Rect& place) {
        SetWindowPos(one_.Window(), nullptr, place.left, place.top, place.width, place.height,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }

    NoteWorldForTests world_;
    TestNote one_{world_, u"one"};
};

TEST_F(HandCounts, TypingStartsNoTimerForEachKey) {
    const HWND box = one_.Child(ChildId::kMessageBox);
    const ImportCounter<20, decltype(SetTimer)> timers("SetTimer");
    ASSERT_TRUE(timers.IsCalled());
    for (int i = 0; i < 50; ++i) SendMessageW(box, WM_CHAR, 'a', 1);
    EXPECT_EQ(one_.form.Text().size(), 50U);
    EXPECT_EQ(timers.Calls(), 1) << "the pause before the save";
}

TEST_F(HandCounts, OnlyAKeyThatCanBeAShortcutAsksForAnother) {
    const HWND box = one_.Child(ChildId::kMessageBox);
    const ImportCounter<29, decltype(GetKeyState)> keys("GetKeyState");
    ASSERT_TRUE(keys.IsCalled());
    for (int i = 0; i < 10; ++i) SendMessageW(box, WM_KEYDOWN, 'E', 1);
    EXPECT_EQ(keys.Calls(), 0);
    for (int i = 0; i < 10; ++i) SendMessageW(box, WM_KEYDOWN, 'A', 1);
    EXPECT_EQ(keys.Calls(), 10) << "Ctrl, which is up";
}

TEST_F(HandCounts, AStepOfAMoveMovesTheNoteAlone) {
    const ImportCounter<21, decltype(SetWindowPos)> moves("SetWindowPos");
    const ImportCounter<22, decltype(SetTimer)> timers("SetTimer");
    const ImportCounter<23, decltype(BeginPaint)> paints("BeginPaint");
    ASSERT_TRUE(moves.IsCalled() && timers.IsCalled() && paints.IsCalled());
    constexpr int kSteps = 20;
    for (int i = 0; i < kSteps; ++i) Place(Rect{200 + i, 200, 188, 163});
    EXPECT_EQ(moves.Calls(), kSteps) << "those of this test";
    EXPECT_LE(timers.Calls(), 1);
    EXPECT_EQ(paints.Calls(), 0);
}

TEST_F(HandCounts, AStepOfAResizeMovesOnlyTheChildrenThatHaveAnotherPlace) {
    one_.form.MoveTo(TwipsRect{3000, 3000, 2820, 2445});
    const ImportCounter<24, decltype(SetWindowPos)> moves("SetWindowPos");
    ASSERT_TRUE(moves.IsCalled());
    RECT now{};
    GetWindowRect(one_.Window(), &now);
    constexpr int kSteps = 10;
    for (int i = 1; i <= kSteps; ++i) Place(Rect{now.left, now.top, now.right - now.left + i, now.bottom - now.top});
    EXPECT_EQ(moves.Calls(), kSteps * (1 + 3)) << "the note, its text box, the pushpin and the cross";
    const int before = moves.Calls();
    for (int i = 1; i <= kSteps; ++i)
        Place(Rect{now.left, now.top, now.right - now.left + kSteps, now.bottom - now.top + i});
    EXPECT_EQ(moves.Calls() - before, kSteps * (1 + 1)) << "only the text box changes with the height";
}

TEST_F(HandCounts, AStepOfTheUsersResizeMovesOnlyTheTextBox) {
    const ImportCounter<36, decltype(SetWindowPos)> moves("SetWindowPos");
    ASSERT_TRUE(moves.IsCalled());
    RECT now{};
    GetWindowRect(one_.Window(), &now);
    SendMessageW(one_.Window(), WM_ENTERSIZEMOVE, 0, 0);
    constexpr int kSteps = 10;
    for (int i = 1; i <= kSteps; ++i) Place(Rect{now.left, now.top, now.right - now.left + i, now.bottom - now.top});
    EXPECT_EQ(moves.Calls(), kSteps * (1 + 1)) << "the note and its text box";
    SendMessageW(one_.Window(), WM_EXITSIZEMOVE, 0, 0);
    EXPECT_EQ(moves.Calls(), kSteps * (1 + 1) + 2) << "the pushpin and the cross";
}

TEST_F(HandCounts, AButtonIsPaintedOnlyWhenItsFaceChanges) {
    const HWND cross = one_.Child(ChildId::kCloseButton);
    const ImportCounter<25, decltype(BeginPaint)> paints("BeginPaint");
    ASSERT_TRUE(paints.IsCalled());
    const auto moveTo = [&](int x, int y) {
        SendMessageW(cross, WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
        UpdateWindow(cross);
    };
    moveTo(5, 5);
    EXPECT_EQ(paints.Calls(), 1);
    for (int x = 6; x < 12; ++x) moveTo(x, 5);
    EXPECT_EQ(paints.Calls(), 1) << "the pointer is still over it";
    moveTo(-5, 5);
    EXPECT_EQ(paints.Calls(), 2);
    SendMessageW(cross, WM_RBUTTONUP, 0, MAKELPARAM(-5, 5));
    UpdateWindow(cross);
    EXPECT_EQ(paints.Calls(), 2) << "a release beside it changes nothing";
}

class SlideCounts : public MainFormTest {};

TEST_F(SlideCounts, AFrameOfTheSlideChangesTheOpacityAndPaintsNothing) {
    ASSERT_TRUE(form_.Load());
    test_.program.settings.animation = true;
    ASSERT_TRUE(IsSlideAnimated(true, SystemAnimates(), IsRemoteSession()));
    form_.SlideForm(true);
    form_.SlideForm(false);
    const ImportCounter<26, decltype(SetLayeredWindowAttributes)> frames("SetLayeredWindowAttributes");
    const ImportCounter<27, decltype(BeginPaint)> paints("BeginPaint");
    const ImportCounter<28, decltype(ShowWindow)> shows("ShowWindow");
    ASSERT_TRUE(frames.IsCalled() && paints.IsCalled() && shows.IsCalled());
    form_.SlideForm(true);
    EXPECT_EQ(frames.Calls(), kSlideFrames + 1) << "and the opaque menu";
    EXPECT_EQ(paints.Calls(), 1);
    EXPECT_EQ(shows.Calls(), 1);
    form_.SlideForm(false);
    EXPECT_EQ(frames.Calls(), 2 * kSlideFrames + 1);
    EXPECT_EQ(paints.Calls(), 1);
    EXPECT_EQ(shows.Calls(), 2);
}

class OpeningCounts : public MainFormTest {
  protected:
    struct Counts {
        int windows = 0;
        int classes = 0;
        int pictures = 0;
        int dropTargets = 0;
        int libraries = 0;
    };

    /// Opens the menu, counts until it is painted, and closes it.
    [[nodiscard]] Counts Open() {
        const ImportCounter<30, decltype(CreateWindowExW)> windows("CreateWindowExW");
        const ImportCounter<31, decltype(RegisterClassExW)> classes("RegisterClassExW");
        const ImportCounter<32, decltype(CreateDIBSection)> pictures("CreateDIBSection");
        const ImportCounter<33, decltype(RegisterDragDrop)> dropTargets("RegisterDragDrop");
        const ImportCounter<34, decltype(LoadLibraryExW)> libraries("LoadLibraryExW");
        const ImportCounter<35, decltype(BeginPaint)> paints("BeginPaint");
        EXPECT_TRUE(windows.IsCalled() && classes.IsCalled() && pictures.IsCalled() && dropTargets.IsCalled() &&
                    libraries.IsCalled() && paints.IsCalled());
        form_.SlideForm(true);
        PumpWaiting();
        // Each painting has a buffer of its own.
        const Counts counts{windows.Calls(), classes.Calls(), pictures.Calls() - paints.Calls(), dropTargets.Calls(),
                            libraries.Calls()};
        form_.SlideForm(false);
        return counts;
    }
};

TEST_F(OpeningCounts, TheFirstOpeningMakesWhatTheMenuKeeps) {
    ASSERT_TRUE(form_.Load());
    EXPECT_EQ(monitorQuestions_, 0);
    const Counts first = Open();
    EXPECT_EQ(first.windows, 2) << "of the icon beside the clock and of the tool tips";
    EXPECT_EQ(first.classes, 1) << "of the icon";
    EXPECT_EQ(first.pictures, 2) << "of the menu and of its disabled item";
    EXPECT_EQ(first.dropTargets, 1);
    EXPECT_LE(first.libraries, 3) << "fewer if another test has loaded them in this process";
    EXPECT_EQ(monitorQuestions_, 1);
}

TEST_F(OpeningCounts, ALaterOpeningMakesOnlyTheToolTips) {
    ASSERT_TRUE(form_.Load());
    (void)Open();
    const Counts later = Open();
    EXPECT_EQ(later.windows, 1);
    EXPECT_EQ(later.classes, 0);
    EXPECT_EQ(later.pictures, 0);
    EXPECT_EQ(later.dropTargets, 0);
    EXPECT_EQ(later.libraries, 0);
    EXPECT_EQ(monitorQuestions_, 1);
}

}  // namespace
}  // namespace quillo::windows_tests
