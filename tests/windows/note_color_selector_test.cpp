#include "controls/note_color_selector.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/dialog_window.h"
#include "platform/gdi_canvas.h"
#include "platform/message_loop.h"
#include "support.h"
#include "testing/fake_random.h"

namespace quillo {
namespace {

using windows_tests::PaintNow;
using windows_tests::PixelOf;

constexpr int kSelectorId = 200;

/// A dialog with a selector above its one button.
class SelectorDialog : public DialogWindow {
  public:
    explicit SelectorDialog(MessageLoop& loop) : DialogWindow(loop) {}
    ~SelectorDialog() override { Destroy(); }

    bool Open() {
        if (!CreateHidden(DialogPlan{L"QuilloTestSelectorDialog", u"Test"})) return false;
        SetWindowPos(Handle(), HWND_TOPMOST, 100, 100, 0, 0, SWP_NOSIZE | SWP_SHOWWINDOW);
        SetForegroundWindow(Handle());
        return true;
    }

    NoteColorSelector selector;
    int pressed = 0;  ///< how often the button was pressed

  protected:
    void CreateControls() override {
        selector.Create(Handle(), kSelectorId, L"Colors", Point{10, 10});
        CreateControl(Handle(), IDOK, kDefaultButton, u"OK");
    }
    void LayOut(HDC dc) override {
        LayOutFoot(dc, 400, 60, 0, {IDOK});
        FitClient(FootBottom());
    }
    void OnCommand(int id, int) override {
        if (id == IDOK) ++pressed;
    }
};

class NoteColorSelectorTest : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(dialog_.Open());
        Selector().onColorPicked = [this](const ColorScheme& scheme) { picked_.push_back(scheme); };
        SetFocus(Window());
        loop_.RunPending();
    }
    NoteColorSelector& Selector() { return dialog_.selector; }
    HWND Window() { return Selector().Handle(); }
    void Release(int x, int y, UINT message = WM_LBUTTONUP) { SendMessageW(Window(), message, 0, MAKELPARAM(x, y)); }
    /// Delivered as the message loop does.
    void Key(int key) {
        PostMessageW(GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        loop_.RunPending();
    }
    Size SizeOf() {
        RECT client{};
        GetClientRect(Window(), &client);
        return Size{client.right, client.bottom};
    }

    MessageLoop loop_;
    SelectorDialog dialog_{loop_};
    std::vector<ColorScheme> picked_;
};

TEST_F(NoteColorSelectorTest, AReleaseOfAnyButtonPicks) {
    Release(0, 0);
    Release(23, 23);
    Release(24, 0, WM_RBUTTONUP);
    Release(263, 12, WM_MBUTTONUP);
    EXPECT_EQ(picked_, (std::vector<ColorScheme>{kSwatches[0], kSwatches[0], kSwatches[1], kSwatches[10]}));
}

TEST_F(NoteColorSelectorTest, TheMarginAndTheOutsidePickNothing) {
    for (const Point at : {Point{264, 10}, Point{267, 10}, Point{268, 10}, Point{-1, 10}, Point{10, 28}, Point{10, -1}})
        Release(at.x, at.y);
    EXPECT_TRUE(picked_.empty());
}

TEST_F(NoteColorSelectorTest, TheLabelOfASwatchPicksIt) {
    Release(8 * 24 + 12, 14);
    ASSERT_EQ(picked_.size(), 1U);
    EXPECT_EQ(picked_[0].note, ColorWord::FromRgb(0, 0, 0));
    EXPECT_EQ(picked_[0].border, ColorWord::FromRgb(0xFE, 0xFE, 0));
    EXPECT_EQ(picked_[0].text, ColorWord::FromRgb(0xFE, 0xFE, 0));
}

TEST_F(NoteColorSelectorTest, APressThatEndsOutsideIsFollowedAndPicksNothing) {
    SendMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
    EXPECT_EQ(GetCapture(), Window());
    Release(10, 40);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_TRUE(picked_.empty());
}

TEST_F(NoteColorSelectorTest, SetDefaultDeliversTheFirstSchemeOnce) {
    Selector().SetDefault();
    EXPECT_EQ(picked_, std::vector<ColorScheme>{kSwatches[0]});
}

TEST_F(NoteColorSelectorTest, RandomColorsRaiseNoEvent) {
    FakeRandom random;
    const ColorScheme& dealt = NoteColorSelector::GetRandomColors(random);
    EXPECT_GE(&dealt, &kSwatches[0]);
    EXPECT_LT(&dealt, &kSwatches[5]);
    EXPECT_TRUE(picked_.empty());
}

TEST_F(NoteColorSelectorTest, KeepsTheSizeOfItsStrip) {
    EXPECT_EQ(SizeOf(), (Size{268, 28}));
    MoveWindow(Window(), 0, 0, 500, 300, FALSE);
    EXPECT_EQ(SizeOf(), (Size{268, 28}));
    SetWindowPos(Window(), nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(SizeOf(), (Size{268, 28}));
    Selector().SetScale(Scale(144));
    EXPECT_EQ(SizeOf(), (Size{402, 42}));
    Release(36, 30);
    EXPECT_EQ(picked_, std::vector<ColorScheme>{kSwatches[1]});
}

TEST_F(NoteColorSelectorTest, TheKeyboardMovesAndPicks) {
    Key(VK_SPACE);
    Key(VK_RIGHT);
    Key(VK_DOWN);
    Key(VK_RETURN);
    Key(VK_END);
    Key(VK_SPACE);
    Key(VK_UP);
    Key(VK_SPACE);
    EXPECT_EQ(picked_, (std::vector<ColorScheme>{kSwatches[0], kSwatches[2], kSwatches[10], kSwatches[9]}));
    EXPECT_EQ(dialog_.pressed, 0) << "Enter is the selector's own while it has the keyboard";
    EXPECT_EQ(GetFocus(), Window()) << "the arrows stay inside";
}

TEST_F(NoteColorSelectorTest, TheKeysContinueFromThePickedSwatchUntilTheChoiceIsReset) {
    Release(5 * 24 + 3, 3);
    Key(VK_RIGHT);
    Key(VK_SPACE);
    Selector().ResetChoice();
    Key(VK_SPACE);
    EXPECT_EQ(picked_, (std::vector<ColorScheme>{kSwatches[5], kSwatches[6], kSwatches[0]}));
}

TEST_F(NoteColorSelectorTest, TabLeavesIt) {
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog_.Handle(), IDOK));
    Key(VK_RETURN);
    EXPECT_EQ(dialog_.pressed, 1);
}

TEST_F(NoteColorSelectorTest, TheSwatchesShowTheirExactColors) {
    SetFocus(GetDlgItem(dialog_.Handle(), IDOK));
    PaintNow(Window());
    for (int i = 0; i < 11; ++i) {
        const ColorScheme& scheme = kSwatches[static_cast<std::size_t>(i)];
        EXPECT_EQ(PixelOf(Window(), Point{24 * i + 3, 3}), ToColorRef(scheme.note)) << i;
        EXPECT_EQ(PixelOf(Window(), Point{24 * i, 12}), ToColorRef(scheme.border)) << i;
        EXPECT_EQ(PixelOf(Window(), Point{24 * i + 23, 23}), ToColorRef(scheme.border)) << i;
    }
    EXPECT_EQ(PixelOf(Window(), Point{266, 5}), GetSysColor(COLOR_WINDOW)) << "the form's ground";
}

TEST_F(NoteColorSelectorTest, TheFocusIsVisible) {
    PaintNow(Window());
    EXPECT_EQ(PixelOf(Window(), Point{5, 27}), GetSysColor(COLOR_HIGHLIGHT));
    Key(VK_RIGHT);
    PaintNow(Window());
    EXPECT_EQ(PixelOf(Window(), Point{5, 27}), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(PixelOf(Window(), Point{29, 27}), GetSysColor(COLOR_HIGHLIGHT));
    SetFocus(GetDlgItem(dialog_.Handle(), IDOK));
    PaintNow(Window());
    EXPECT_EQ(PixelOf(Window(), Point{29, 27}), GetSysColor(COLOR_WINDOW));
}

TEST_F(NoteColorSelectorTest, AClickMarksNoSwatchAndAKeyDoesAgain) {
    SendMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, 5));
    SendMessageW(Window(), WM_LBUTTONUP, 0, MAKELPARAM(30, 5));
    PaintNow(Window());
    for (const int x : {5, 29, 53}) {
        EXPECT_EQ(PixelOf(Window(), Point{x, 27}), GetSysColor(COLOR_WINDOW)) << x;
    }
    Key(VK_RIGHT);
    PaintNow(Window());
    EXPECT_EQ(PixelOf(Window(), Point{53, 27}), GetSysColor(COLOR_HIGHLIGHT)) << "from the clicked one on";
}

TEST_F(NoteColorSelectorTest, AHandlerMayEndTheForm) {
    Selector().onColorPicked = [this](const ColorScheme&) { SendMessageW(dialog_.Handle(), WM_CLOSE, 0, 0); };
    Key(VK_SPACE);
    EXPECT_EQ(dialog_.Handle(), nullptr);
    EXPECT_EQ(Window(), nullptr);
}

}  // namespace
}  // namespace quillo
