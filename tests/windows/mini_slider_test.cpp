#include "controls/tessel_mini_slider.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "control_fixture.h"
#include "platform/ui_timer.h"

// After windows.h.
#include <commctrl.h>

namespace quillo {
namespace {

using windows_tests::ControlParent;
using windows_tests::PaintedAt;
using windows_tests::PaintNow;
using windows_tests::PixelOf;
using windows_tests::SendMouse;

constexpr COLORREF kFore = RGB(200, 100, 0);
constexpr COLORREF kBack = RGB(250, 250, 240);

class MiniSliderTest : public testing::Test {
  protected:
    MiniSliderTest() {
        SliderProperties properties;
        properties.foreColor = ColorWord{kFore};
        properties.backColor = ColorWord{kBack};
        EXPECT_TRUE(slider_.Create(parent_.Of(), 7, L"Opacity", properties, Rect{10, 10, 102, 20}));
        slider_.SetScale(Scale());
        slider_.onClick = [this](std::int32_t value) { events_ += "c" + std::to_string(value) + " "; };
        slider_.onChange = [this](std::int32_t value) {
            events_ += "v" + std::to_string(value) + "(" + std::to_string(slider_.Value()) + ") ";
        };
    }

    void Mouse(UINT message, WPARAM keys, int x) { SendMouse(slider_.Handle(), message, keys, Point{x, 10}); }
    void Key(WPARAM key) { SendMessageW(slider_.Handle(), WM_KEYDOWN, key, 0); }
    [[nodiscard]] bool HasCapture() const { return GetCapture() == slider_.Handle(); }

    ControlParent parent_;
    TesselMiniSlider slider_;
    std::string events_;
};

TEST_F(MiniSliderTest, APressAndADragPickValuesAndFollowThePointerOutside) {
    Mouse(WM_LBUTTONDOWN, MK_LBUTTON, 51);
    EXPECT_EQ(events_, "c50 v50(0) ");
    EXPECT_TRUE(HasCapture());
    Mouse(WM_MOUSEMOVE, MK_LBUTTON, 51);
    Mouse(WM_MOUSEMOVE, MK_LBUTTON, -3);
    EXPECT_EQ(events_, "c50 v50(0) c0 v0(50) ");
    Mouse(WM_MOUSEMOVE, MK_LBUTTON, 4000);
    EXPECT_EQ(slider_.Value(), 100);
    Mouse(WM_LBUTTONUP, 0, 4000);
    EXPECT_FALSE(HasCapture());
    Mouse(WM_MOUSEMOVE, 0, 20);
    EXPECT_EQ(slider_.Value(), 100) << "no button is held";
}

TEST_F(MiniSliderTest, ItsAboutBoxHasTheProgramsName) {
    bool seen = false;
    UiTimer reader([&] {
        HWND box = FindWindowW(L"#32770", L"Quillo");
        if (box == nullptr) return;
        seen = true;
        PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    reader.Start(20);
    slider_.AboutBox();
    EXPECT_TRUE(seen);
}

TEST_F(MiniSliderTest, EveryButtonDragsAndTheLastReleaseEndsTheDrag) {
    Mouse(WM_RBUTTONDOWN, MK_RBUTTON, 31);
    EXPECT_EQ(slider_.Value(), 30);
    Mouse(WM_LBUTTONDOWN, MK_RBUTTON | MK_LBUTTON, 41);
    EXPECT_EQ(slider_.Value(), 40);
    Mouse(WM_RBUTTONUP, MK_LBUTTON, 41);
    EXPECT_TRUE(HasCapture());
    Mouse(WM_LBUTTONUP, 0, 41);
    EXPECT_FALSE(HasCapture());
}

TEST_F(MiniSliderTest, TheKeyboardDoesWhatTheMouseDoes) {
    Key(VK_RIGHT);
    Key(VK_UP);
    EXPECT_EQ(events_, "c1 v1(0) c2 v2(1) ");
    Key(VK_LEFT);
    Key(VK_PRIOR);
    EXPECT_EQ(slider_.Value(), 11);
    Key(VK_NEXT);
    Key(VK_DOWN);
    EXPECT_EQ(slider_.Value(), 0);
    Key(VK_END);
    EXPECT_EQ(slider_.Value(), 100);
    Key(VK_HOME);
    EXPECT_EQ(slider_.Value(), 0);
    Key('A');
    EXPECT_EQ(slider_.Value(), 0);
    EXPECT_EQ(SendMessageW(slider_.Handle(), WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS);
    EXPECT_NE(GetWindowLongPtrW(slider_.Handle(), GWL_STYLE) & WS_TABSTOP, 0);
}

TEST_F(MiniSliderTest, PaintsItsLevelInsideABlackOutline) {
    slider_.SetValue(40);
    PaintNow(slider_.Handle());
    const HWND window = slider_.Handle();
    EXPECT_EQ(PixelOf(window, Point{0, 0}), RGB(0, 0, 0));
    EXPECT_EQ(PixelOf(window, Point{101, 19}), RGB(0, 0, 0));
    EXPECT_EQ(PixelOf(window, Point{1, 1}), kFore);
    EXPECT_EQ(PixelOf(window, Point{40, 10}), kFore);
    EXPECT_EQ(PixelOf(window, Point{41, 10}), kBack);
    EXPECT_EQ(PixelOf(window, Point{100, 18}), kBack);
}

TEST_F(MiniSliderTest, AWrittenValueShowsAndIsReported) {
    slider_.SetValue(150);
    EXPECT_EQ(events_, "v100(100) ");
    EXPECT_EQ(PaintedAt(slider_.Handle(), Point{100, 10}), kFore);
    slider_.SetForeColor(ColorWord{RGB(1, 2, 3)});
    EXPECT_EQ(PaintedAt(slider_.Handle(), Point{100, 10}), RGB(1, 2, 3));
}

TEST_F(MiniSliderTest, TheKeyboardsFocusShows) {
    SetForegroundWindow(parent_.Of());
    const Point ring{50, 2};
    ASSERT_EQ(PaintedAt(slider_.Handle(), ring), kBack);
    SetFocus(slider_.Handle());
    ASSERT_EQ(GetFocus(), slider_.Handle());
    EXPECT_EQ(PaintedAt(slider_.Handle(), ring), GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(PixelOf(slider_.Handle(), Point{50, 1}), GetSysColor(COLOR_WINDOW));
    SetFocus(nullptr);
    EXPECT_EQ(PaintedAt(slider_.Handle(), ring), kBack);
}

/// Windows hides the keyboard cues until a control requests them. Wine always shows them; this replaces its answer.
LRESULT CALLBACK HideCues(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR) {
    if (message == WM_QUERYUISTATE) return UISF_HIDEFOCUS;
    if (message == WM_CHANGEUISTATE && wParam == MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS)) {
        RemoveWindowSubclass(window, &HideCues, id);
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(MiniSliderTest, TheFocusShowsOnlyWhileWindowsShowsKeyboardCues) {
    SetForegroundWindow(parent_.Of());
    SetFocus(slider_.Handle());
    SetWindowSubclass(slider_.Handle(), &HideCues, 1, 0);
    const Point ring{50, 2};
    EXPECT_EQ(PaintedAt(slider_.Handle(), ring), kBack) << "the user works with the mouse";
    slider_.SetValue(1);
    Key(VK_LEFT);
    EXPECT_EQ(PaintedAt(slider_.Handle(), ring), GetSysColor(COLOR_WINDOWTEXT)) << "and now with the keyboard";
}

TEST_F(MiniSliderTest, APressTakesTheFocus) {
    SetForegroundWindow(parent_.Of());
    Mouse(WM_LBUTTONDOWN, MK_LBUTTON, 51);
    EXPECT_EQ(GetFocus(), slider_.Handle());
    Mouse(WM_LBUTTONUP, 0, 51);
}

TEST_F(MiniSliderTest, ADisabledOneRaisesNothing) {
    slider_.SetEnabled(false);
    EXPECT_FALSE(slider_.Enabled());
    EXPECT_FALSE(IsWindowEnabled(slider_.Handle()));
    Mouse(WM_LBUTTONDOWN, MK_LBUTTON, 51);
    Mouse(WM_LBUTTONUP, 0, 51);
    Key(VK_END);
    EXPECT_EQ(events_, "");
    slider_.SetEnabled(true);
    Key(VK_END);
    EXPECT_EQ(events_, "c100 v100(0) ");
}

TEST_F(MiniSliderTest, ItStartsWithItsFormsProperties) {
    SliderProperties properties;
    properties.min = 1;
    properties.max = 255;
    properties.value = 200;
    properties.enabled = false;
    TesselMiniSlider other;
    ASSERT_TRUE(other.Create(parent_.Of(), 8, L"Other", properties, Rect{10, 40, 257, 20}));
    EXPECT_EQ(other.Min(), 1);
    EXPECT_EQ(other.Max(), 255);
    EXPECT_EQ(other.Value(), 200);
    EXPECT_FALSE(other.Enabled());
    EXPECT_FALSE(IsWindowEnabled(other.Handle()));
}

TEST_F(MiniSliderTest, SizeAndResolutionMoveTheLevel) {
    MoveWindow(slider_.Handle(), 10, 10, 204, 40, FALSE);
    slider_.SetScale(Scale(192));
    slider_.SetValue(50);
    PaintNow(slider_.Handle());
    EXPECT_EQ(PixelOf(slider_.Handle(), Point{1, 20}), RGB(0, 0, 0));
    EXPECT_EQ(PixelOf(slider_.Handle(), Point{2, 20}), kFore);
    EXPECT_EQ(PixelOf(slider_.Handle(), Point{101, 20}), kFore);
    EXPECT_EQ(PixelOf(slider_.Handle(), Point{102, 20}), kBack);
    EXPECT_EQ(PixelOf(slider_.Handle(), Point{202, 20}), RGB(0, 0, 0));
}

TEST_F(MiniSliderTest, AHandlerMayEndTheSlider) {
    auto slider = std::make_unique<TesselMiniSlider>();
    ASSERT_TRUE(slider->Create(parent_.Of(), 9, L"Short-lived", {}, Rect{10, 40, 102, 20}));
    slider->onClick = [&](std::int32_t value) {
        events_ += "c" + std::to_string(value);
        slider.reset();
    };
    SendMouse(slider->Handle(), WM_LBUTTONDOWN, MK_LBUTTON, Point{90, 10});
    EXPECT_EQ(slider, nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_NE(events_, "");
}

}  // namespace
}  // namespace quillo
