#include "controls/tessel_divider.h"

#include <gtest/gtest.h>

#include "control_fixture.h"
#include "platform/text_tools.h"

namespace quillo {
namespace {

using windows_tests::ControlParent;
using windows_tests::PaintedAt;
using windows_tests::PaintNow;
using windows_tests::PixelOf;

COLORREF Shadow() {
    return GetSysColor(COLOR_BTNSHADOW);
}
COLORREF Highlight() {
    return GetSysColor(COLOR_BTNHIGHLIGHT);
}

class DividerTest : public testing::Test {
  protected:
    DividerTest() {
        EXPECT_TRUE(divider_.Create(parent_.Of(), 7, u"", Rect{10, 10, 200, 20}));
        divider_.SetScale(Scale());
        SendMessageW(divider_.Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
    }
    /// How many pixels left of `right` are neither background nor groove.
    [[nodiscard]] int CaptionPixels(int right) const {
        PaintNow(divider_.Handle());
        int found = 0;
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < right; ++x) {
                const COLORREF color = PixelOf(divider_.Handle(), Point{x, y});
                if (color != ControlParent::kGround && color != Shadow() && color != Highlight()) ++found;
            }
        }
        return found;
    }

    FontHandle font_ = MakeFont(u"Tahoma", 9, FW_NORMAL, Scale());
    ControlParent parent_;
    TesselDivider divider_;
};

TEST_F(DividerTest, AnEmptyCaptionLeavesOnlyTheGrooveOnTheFormsBackground) {
    PaintNow(divider_.Handle());
    for (const int x : {0, 100, 199}) {
        EXPECT_EQ(PixelOf(divider_.Handle(), Point{x, 8}), ControlParent::kGround);
        EXPECT_EQ(PixelOf(divider_.Handle(), Point{x, 9}), Shadow());
        EXPECT_EQ(PixelOf(divider_.Handle(), Point{x, 10}), Highlight());
        EXPECT_EQ(PixelOf(divider_.Handle(), Point{x, 11}), ControlParent::kGround);
    }
    EXPECT_EQ(CaptionPixels(200), 0);
}

TEST_F(DividerTest, TwoPixelsWideItIsAnUprightGroove) {
    MoveWindow(divider_.Handle(), 10, 10, 2, 100, FALSE);
    PaintNow(divider_.Handle());
    for (const int y : {0, 50, 99}) {
        EXPECT_EQ(PixelOf(divider_.Handle(), Point{0, y}), Shadow());
        EXPECT_EQ(PixelOf(divider_.Handle(), Point{1, y}), Highlight());
    }
}

TEST_F(DividerTest, ACaptionShowsAndTheGrooveBeginsBehindIt) {
    divider_.SetCaption(u"Sounds");
    EXPECT_EQ(divider_.Caption(), u"Sounds");
    EXPECT_GT(CaptionPixels(60), 20);
    EXPECT_NE(PixelOf(divider_.Handle(), Point{1, 10}), Highlight());
    EXPECT_EQ(PixelOf(divider_.Handle(), Point{199, 9}), Shadow());
    EXPECT_EQ(PixelOf(divider_.Handle(), Point{199, 10}), Highlight());
    divider_.SetCaption(u"");
    EXPECT_EQ(PaintedAt(divider_.Handle(), Point{1, 10}), Highlight());
}

TEST_F(DividerTest, TheFontIsTheOneGiven) {
    divider_.SetCaption(u"Sounds");
    const int small = CaptionPixels(200);
    const FontHandle large = MakeFont(u"Tahoma", 13, FW_BOLD, Scale());
    SendMessageW(divider_.Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(large.Get()), FALSE);
    EXPECT_EQ(SendMessageW(divider_.Handle(), WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(large.Get()));
    EXPECT_GT(CaptionPixels(200), small);
    SendMessageW(divider_.Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
}

TEST_F(DividerTest, TheGrooveGrowsWithTheResolution) {
    MoveWindow(divider_.Handle(), 10, 10, 200, 40, FALSE);
    divider_.SetScale(Scale(192));
    PaintNow(divider_.Handle());
    EXPECT_EQ(PixelOf(divider_.Handle(), Point{100, 18}), Shadow());
    EXPECT_EQ(PixelOf(divider_.Handle(), Point{100, 19}), Shadow());
    EXPECT_EQ(PixelOf(divider_.Handle(), Point{100, 20}), Highlight());
    EXPECT_EQ(PixelOf(divider_.Handle(), Point{100, 21}), Highlight());
    EXPECT_EQ(PixelOf(divider_.Handle(), Point{100, 22}), ControlParent::kGround);
}

TEST_F(DividerTest, TheMouseAndTheKeyboardIgnoreIt) {
    EXPECT_EQ(SendMessageW(divider_.Handle(), WM_NCHITTEST, 0, MAKELPARAM(250, 220)), HTTRANSPARENT);
    EXPECT_EQ(SendMessageW(divider_.Handle(), WM_GETDLGCODE, 0, 0), DLGC_STATIC);
    EXPECT_EQ(GetWindowLongPtrW(divider_.Handle(), GWL_STYLE) & WS_TABSTOP, 0);
}

}  // namespace
}  // namespace quillo
