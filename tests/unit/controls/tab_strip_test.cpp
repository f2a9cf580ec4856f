#include "controls/tab_strip.h"

#include <gtest/gtest.h>

#include <vector>

#include "canvas_calls.h"

namespace quillo {
namespace {

using Capture = TabResponse::Capture;

constexpr TabResponse kNothing{};
constexpr Size kControl{400, 40};

TabLayout LayoutOf(std::vector<int> captionWidths) {
    TabMeasures measures;
    measures.captionWidths = std::move(captionWidths);
    measures.lineHeight = 14;
    measures.spacing = 10;
    measures.control = kControl;
    return TabLayout(measures, Scale());
}

class TabStripTest : public testing::Test {
  protected:
    TabStripTest() { strip_.SetLayout(LayoutOf({30, 50, 40})); }

    TabStrip strip_;
};

constexpr Point kOnFirst{20, 10};
constexpr Point kOnSecond{80, 10};
constexpr Point kOnThird{150, 10};
constexpr Point kBetween{54, 10};
constexpr Point kOff{390, 10};

TEST_F(TabStripTest, NothingIsCurrentAndNothingHotAtFirst) {
    EXPECT_EQ(strip_.Current(), 0);
    EXPECT_EQ(strip_.Hot(), 0);
}

TEST_F(TabStripTest, EnteringATabCapturesTheMouse) {
    EXPECT_EQ(strip_.MouseMove(kOnSecond), (TabResponse{Capture::Take, true, 0}));
    EXPECT_EQ(strip_.Hot(), 2);
    EXPECT_EQ(strip_.MouseMove(kOnSecond), kNothing) << "only a change counts";
}

TEST_F(TabStripTest, EnteringTheCurrentTabChangesNoPicture) {
    strip_.SetCurrent(2);
    EXPECT_EQ(strip_.MouseMove(kOnSecond), (TabResponse{Capture::Take, false, 0}));
    EXPECT_EQ(strip_.Hot(), 2);
}

TEST_F(TabStripTest, MovingToAnotherTabKeepsTheCapture) {
    (void)strip_.MouseMove(kOnSecond);
    EXPECT_EQ(strip_.MouseMove(kOnThird), (TabResponse{Capture::Keep, true, 0}));
    EXPECT_EQ(strip_.Hot(), 3);
}

TEST_F(TabStripTest, LeavingTheTabsReleasesTheCapture) {
    for (const Point off : {kOff, kBetween, Point{-1, -1}}) {
        (void)strip_.MouseMove(kOnSecond);
        EXPECT_EQ(strip_.MouseMove(off), (TabResponse{Capture::Release, true, 0}));
        EXPECT_EQ(strip_.Hot(), 0);
    }
    EXPECT_EQ(strip_.MouseMove(kOff), kNothing);
}

TEST_F(TabStripTest, AReleaseOverATabMakesItCurrent) {
    (void)strip_.MouseMove(kOnSecond);
    EXPECT_EQ(strip_.MouseUp(), (TabResponse{Capture::Release, true, 2}));
    EXPECT_EQ(strip_.Current(), 2);
    EXPECT_EQ(strip_.Hot(), 0);
    EXPECT_EQ(strip_.MouseMove(kOnSecond), (TabResponse{Capture::Take, false, 0}));
    EXPECT_EQ(strip_.MouseUp(), (TabResponse{Capture::Release, true, 2})) << "the current one is reported again";
}

TEST_F(TabStripTest, AReleaseElsewhereDoesNothing) {
    strip_.SetCurrent(1);
    EXPECT_EQ(strip_.MouseUp(), kNothing);
    (void)strip_.MouseMove(kOnSecond);
    (void)strip_.MouseMove(kOff);
    EXPECT_EQ(strip_.MouseUp(), kNothing);
    EXPECT_EQ(strip_.Current(), 1);
}

TEST_F(TabStripTest, WithoutTabsTheMouseDoesNothing) {
    strip_.SetLayout(LayoutOf({}));
    EXPECT_EQ(strip_.MouseMove(kOnFirst), kNothing);
    EXPECT_EQ(strip_.MouseUp(), kNothing);
    EXPECT_EQ(strip_.DragOver(kOnFirst), kNothing);
    EXPECT_EQ(strip_.Press(TabKey::First), kNothing);
    EXPECT_EQ(strip_.Choose(1), kNothing);
}

TEST_F(TabStripTest, DraggingDataOverATabChoosesItOnce) {
    strip_.SetCurrent(1);
    EXPECT_EQ(strip_.DragOver(kOnThird), (TabResponse{Capture::Keep, true, 3}));
    EXPECT_EQ(strip_.Current(), 3);
    EXPECT_EQ(strip_.DragOver(kOnThird), kNothing);
    EXPECT_EQ(strip_.DragOver(kOff), kNothing);
    EXPECT_EQ(strip_.DragOver(kBetween), kNothing);
    EXPECT_EQ(strip_.Current(), 3);
    EXPECT_EQ(strip_.Hot(), 0) << "a drag makes nothing hot";
}

TEST_F(TabStripTest, KeysChooseANeighborOrAnEnd) {
    struct Case {
        int from;
        TabKey key;
        int to;  // 0 for no change
    };
    for (const Case& c :
         {Case{1, TabKey::Next, 2}, Case{3, TabKey::Next, 0}, Case{3, TabKey::Previous, 2},
          Case{1, TabKey::Previous, 0}, Case{3, TabKey::First, 1}, Case{1, TabKey::First, 0}, Case{1, TabKey::Last, 3},
          Case{3, TabKey::Last, 0}, Case{0, TabKey::Next, 1}, Case{0, TabKey::Previous, 1}}) {
        strip_.SetCurrent(c.from);
        const TabResponse expected = c.to != 0 ? TabResponse{Capture::Keep, true, c.to} : kNothing;
        EXPECT_EQ(strip_.Press(c.key), expected) << c.from;
        EXPECT_EQ(strip_.Current(), c.to != 0 ? c.to : c.from);
    }
}

TEST_F(TabStripTest, ANumberThatNoTabHasMeansNone) {
    for (const int tab : {0, -1, 4, 1000}) {
        strip_.SetCurrent(2);
        strip_.SetCurrent(tab);
        EXPECT_EQ(strip_.Current(), 0) << tab;
        EXPECT_EQ(strip_.Choose(tab), kNothing) << tab;
    }
}

TEST_F(TabStripTest, ARemovedTabIsNoLongerCurrent) {
    strip_.SetCurrent(3);
    (void)strip_.MouseMove(kOnThird);
    strip_.SetLayout(LayoutOf({30, 50}));
    EXPECT_EQ(strip_.Current(), 0);
    EXPECT_EQ(strip_.Hot(), 0);
    strip_.SetCurrent(2);
    strip_.SetLayout(LayoutOf({30, 50, 60}));
    EXPECT_EQ(strip_.Current(), 2);
}

TEST_F(TabStripTest, ALostCaptureLeavesNoTabHot) {
    EXPECT_EQ(strip_.CaptureLost(), kNothing);
    (void)strip_.MouseMove(kOnSecond);
    EXPECT_EQ(strip_.CaptureLost(), (TabResponse{Capture::Keep, true, 0}));
    EXPECT_EQ(strip_.Hot(), 0);
    EXPECT_EQ(strip_.MouseUp(), kNothing);
}

TEST_F(TabStripTest, ACaptionsColorAndLineShowItsState) {
    const TabProperties properties = FreshTabProperties();
    strip_.SetCurrent(1);
    (void)strip_.MouseMove(kOnSecond);
    EXPECT_EQ(strip_.CaptionColor(1, properties), properties.tabForeColor);
    EXPECT_EQ(strip_.CaptionColor(2, properties), properties.hotColor);
    EXPECT_EQ(strip_.CaptionColor(3, properties), properties.foreColor);
    EXPECT_FALSE(strip_.IsUnderlined(1));
    EXPECT_TRUE(strip_.IsUnderlined(2));
    EXPECT_FALSE(strip_.IsUnderlined(3));
    (void)strip_.MouseMove(kOnFirst);
    EXPECT_EQ(strip_.CaptionColor(1, properties), properties.tabForeColor) << "hot and current is current";
    EXPECT_FALSE(strip_.IsUnderlined(1));
}

TEST(TabPropertiesTest, AFreshStripHasThreeTabsAndTextInTheWindowsColor) {
    const TabProperties fresh = FreshTabProperties();
    EXPECT_EQ(fresh.tabs, u"Tab 1|Tab 2|Tab 3");
    EXPECT_EQ(fresh.foreColor.value, 0x80000008U);
}

TEST(TabPropertiesTest, PropertiesThatAFormOmitsHaveTheirDefaults) {
    // Intended: a form's strip without properties has no tabs, and captions in the color of button texts.
    const TabProperties unsaid;
    EXPECT_EQ(unsaid.tabs, u"");
    EXPECT_EQ(unsaid.foreColor.value, 0x80000012U);
    for (const TabProperties& properties : {unsaid, FreshTabProperties()}) {
        EXPECT_FALSE(properties.thickBorder);
        EXPECT_FALSE(properties.alignTop);
        EXPECT_FALSE(properties.inlineIcons);
        EXPECT_EQ(properties.tabForeColor.value, 0x80000012U);
        EXPECT_EQ(properties.backColor.value, 0x80000016U);
        EXPECT_EQ(properties.tabColor.value, 0x8000000FU);
        EXPECT_EQ(properties.hotColor.value, 0x8000000DU);
        EXPECT_EQ(properties.dividerColor.value, 0x80000010U);
        EXPECT_EQ(properties.maskColor.value, 0x00FF00FFU);
        EXPECT_EQ(properties.tabSpacing, 10);
    }
}

using Call = RecordingCanvas::Call;

TEST_F(TabStripTest, TheBackgroundIsTheBackColorAndTheLineOfThePage) {
    RecordingCanvas canvas;
    const TabProperties properties;
    strip_.PaintGround(canvas, properties, kControl, Scale());
    EXPECT_EQ(canvas.Calls(), (std::vector{FillOf(Rect{0, 0, 400, 40}, properties.backColor),
                                           FillOf(Rect{0, 39, 400, 1}, properties.dividerColor)}));
}

TEST_F(TabStripTest, TheCurrentTabsFaceIsOpenTowardThePage) {
    strip_.SetCurrent(1);
    RecordingCanvas canvas;
    const TabProperties properties;
    strip_.PaintGround(canvas, properties, kControl, Scale());
    ASSERT_EQ(canvas.Calls().size(), 6U);
    EXPECT_EQ(canvas.Calls()[2], FillOf(Rect{2, 2, 50, 38}, properties.tabColor)) << "over the line as well";
    EXPECT_EQ(canvas.Calls()[3], FillOf(Rect{2, 2, 1, 38}, kSystemButtonHighlight));
    EXPECT_EQ(canvas.Calls()[4], FillOf(Rect{51, 2, 1, 38}, kSystemButtonShadow));
    EXPECT_EQ(canvas.Calls()[5], FillOf(Rect{2, 2, 50, 1}, kSystemButtonHighlight));
}

TEST_F(TabStripTest, AThickBorderHasASecondEdgeAround) {
    strip_.SetCurrent(1);
    RecordingCanvas canvas;
    TabProperties properties;
    properties.thickBorder = true;
    strip_.PaintGround(canvas, properties, kControl, Scale());
    ASSERT_EQ(canvas.Calls().size(), 9U);
    EXPECT_EQ(canvas.Calls()[3], FillOf(Rect{2, 2, 1, 38}, kSystem3dLight));
    EXPECT_EQ(canvas.Calls()[4], FillOf(Rect{51, 2, 1, 38}, kSystemDarkShadow));
    EXPECT_EQ(canvas.Calls()[6], FillOf(Rect{3, 3, 1, 37}, kSystemButtonHighlight));
    EXPECT_EQ(canvas.Calls()[7], FillOf(Rect{50, 3, 1, 37}, kSystemButtonShadow));
}

TEST_F(TabStripTest, TabsThatHangHaveTheirEdgeBelow) {
    strip_.SetCurrent(1);
    RecordingCanvas canvas;
    TabProperties properties;
    properties.alignTop = true;
    strip_.PaintGround(canvas, properties, kControl, Scale());
    ASSERT_EQ(canvas.Calls().size(), 6U);
    EXPECT_EQ(canvas.Calls()[1], FillOf(Rect{0, 0, 400, 1}, properties.dividerColor));
    EXPECT_EQ(canvas.Calls()[2], FillOf(Rect{2, 0, 50, 38}, properties.tabColor));
    EXPECT_EQ(canvas.Calls()[5], FillOf(Rect{2, 37, 50, 1}, kSystemButtonShadow));
}

}  // namespace
}  // namespace quillo
