#include "controls/tab_layout.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

using Captions = std::vector<std::u16string>;

TabMeasures MeasuresOf(std::vector<int> captionWidths, int width = 400) {
    TabMeasures measures;
    measures.captionWidths = std::move(captionWidths);
    measures.lineHeight = 14;
    measures.spacing = 10;
    measures.control = Size{width, 40};
    return measures;
}

TEST(SplitTabsTest, BarsSeparateTheCaptions) {
    struct Case {
        std::u16string_view tabs;
        Captions captions;
    };
    for (const Case& c : {
             Case{u"", {}},
             Case{u"One", {u"One"}},
             Case{u"Tab 1|Tab 2|Tab 3", {u"Tab 1", u"Tab 2", u"Tab 3"}},
             Case{u"First||Third", {u"First", u"", u"Third"}},
             Case{u"|", {u"", u""}},
             Case{u"a|", {u"a", u""}},
             Case{u"|a", {u"", u"a"}},
             Case{u" a | b ", {u" a ", u" b "}},
         }) {
        EXPECT_EQ(SplitTabs(c.tabs), c.captions) << testing::PrintToString(std::u16string(c.tabs));
    }
}

TEST(TabLayoutTest, TabsFollowEachOtherFromTheSecondPixel) {
    const TabLayout layout(MeasuresOf({30, 50, 40}), Scale());
    ASSERT_EQ(layout.Count(), 3);
    EXPECT_EQ(layout.Left(1), 2);
    EXPECT_EQ(layout.Width(1), 40);  // 30 plus the spacing
    EXPECT_EQ(layout.Left(2), 52);   // 2 + 40 + 10
    EXPECT_EQ(layout.Width(2), 60);
    EXPECT_EQ(layout.Left(3), 122);
    EXPECT_EQ(layout.Width(3), 50);
    EXPECT_EQ(layout.Right(3), 182);
}

TEST(TabLayoutTest, NoTabsLayOutNothing) {
    const TabLayout layout(MeasuresOf({}), Scale());
    EXPECT_EQ(layout.Count(), 0);
    EXPECT_EQ(layout.Hit(Point{5, 5}), 0);
}

TEST(TabLayoutTest, TabsTooWideAreAllNarrowedByTheSame) {
    struct Case {
        int width;
        int shrink;
    };
    // 120 in all for the captions and 60 for the spacing.
    for (const Case& c : {Case{180, 0}, Case{400, 0}, Case{179, 1}, Case{177, 1}, Case{176, 2}, Case{170, 4},
                          Case{168, 4}, Case{60, 40}}) {
        const TabLayout layout(MeasuresOf({30, 50, 40}, c.width), Scale());
        EXPECT_EQ(layout.Width(1), 40 - c.shrink) << c.width;
        EXPECT_EQ(layout.Width(2), 60 - c.shrink) << c.width;
        EXPECT_EQ(layout.Width(3), 50 - c.shrink) << c.width;
        EXPECT_EQ(layout.Left(2), 2 + layout.Width(1) + 10) << c.width;
    }
}

TEST(TabLayoutTest, AnInlineIconWidensItsTabAndOneAboveDoesNot) {
    TabMeasures measures = MeasuresOf({30, 0});
    measures.iconEdge = 16;
    EXPECT_EQ(TabLayout(measures, Scale()).Width(1), 40);
    measures.inlineIcons = true;
    const TabLayout inlined(measures, Scale());
    EXPECT_EQ(inlined.Width(1), 60);  // and a gap of 4
    EXPECT_EQ(inlined.Width(2), 30);
    measures.iconEdge = 0;
    EXPECT_EQ(TabLayout(measures, Scale()).Width(1), 40) << "no picture";
}

TEST(TabLayoutTest, TheHitTest) {
    const TabLayout layout(MeasuresOf({30, 50, 40}), Scale());
    struct Case {
        Point at;
        int tab;
    };
    for (const Case& c : {
             Case{{0, 5}, 0},
             Case{{4, 5}, 0},  // the first three pixels of a tab are not part of it
             Case{{5, 5}, 1},
             Case{{52, 5}, 1},  // up to its left, its width and the spacing
             Case{{53, 5}, 0},
             Case{{54, 5}, 0},
             Case{{55, 5}, 2},
             Case{{122, 5}, 2},
             Case{{125, 5}, 3},
             Case{{182, 5}, 3},
             Case{{183, 5}, 0},
             Case{{399, 5}, 0},
             Case{{5, 0}, 1},
             Case{{5, 39}, 1},
             Case{{5, 40}, 0},
             Case{{5, -1}, 0},
             Case{{-1, 5}, 0},
         }) {
        EXPECT_EQ(layout.Hit(c.at), c.tab) << c.at.x << ", " << c.at.y;
    }
}

TEST(TabLayoutTest, OutsideTheControlNothingIsHit) {
    // Shrunk to 100 pixels, the last tab ends outside the control.
    const TabLayout layout(MeasuresOf({200}, 100), Scale());
    EXPECT_EQ(layout.Right(1), 102);
    EXPECT_EQ(layout.Hit(Point{99, 5}), 1);
    EXPECT_EQ(layout.Hit(Point{100, 5}), 0);
    EXPECT_EQ(layout.Face(1, false).Right(), 100) << "its edge stays in sight";
}

TEST(TabLayoutTest, ACaptionHasTheSpaceBetweenTheHalvesOfTheSpacing) {
    TabMeasures measures = MeasuresOf({30, 50});
    const TabLayout layout(measures, Scale());
    EXPECT_EQ(layout.CaptionBox(1, false).left, 2 + 5 + 2);
    EXPECT_EQ(layout.CaptionBox(1, false).Right(), 2 + 40 + 5 - 1);
    EXPECT_EQ(layout.CaptionBox(2, false).left, 52 + 5 + 2);
    EXPECT_EQ(layout.CaptionBox(2, false).Right(), 52 + 60 + 5 - 1);
    measures.spacing = 7;
    const TabLayout odd(measures, Scale());
    EXPECT_EQ(odd.CaptionBox(1, false).left, 2 + 3 + 2) << "half of the spacing is whole";
    EXPECT_EQ(odd.CaptionBox(1, false).Right(), 2 + 37 + 3 - 1);
}

TEST(TabLayoutTest, IconsAreAboveTheirCaptionsOrBesideThem) {
    TabMeasures measures = MeasuresOf({30});
    measures.iconEdge = 16;
    const TabLayout above(measures, Scale());
    const Rect face = above.Face(1, false);
    EXPECT_EQ(above.IconAt(1, false), (Point{2 + 25 - 8, face.top + 2}));
    EXPECT_GE(above.CaptionBox(1, false).Bottom() - 14, face.top + 2 + 16) << "the caption is clear of its icon";
    EXPECT_LT(above.CaptionBox(1, false).Bottom(), face.Bottom());

    measures.inlineIcons = true;
    const TabLayout beside(measures, Scale());
    EXPECT_EQ(beside.IconAt(1, false).x, 2 + 5 + 2 + 1);
    EXPECT_GE(beside.CaptionBox(1, false).left, beside.IconAt(1, false).x + 16);
    EXPECT_GE(beside.CaptionBox(1, false).width, 30 - 4) << "nothing of the caption is lost but the margins";
}

TEST(TabLayoutTest, TheTabsAreAboveThePageOrBelowIt) {
    const TabLayout layout(MeasuresOf({30}), Scale());
    EXPECT_EQ(layout.PageLine(false), (Rect{0, 39, 400, 1}));
    EXPECT_EQ(layout.Face(1, false), (Rect{2, 2, 50, 37}));
    EXPECT_EQ(layout.PageLine(true), (Rect{0, 0, 400, 1}));
    EXPECT_EQ(layout.Face(1, true), (Rect{2, 1, 50, 37}));
}

TEST(TabLayoutTest, FiguresGrowWithTheResolution) {
    TabMeasures measures = MeasuresOf({60, 100}, 800);
    measures.spacing = 20;
    measures.control.height = 80;
    const TabLayout layout(measures, Scale(192));
    EXPECT_EQ(layout.Left(1), 4);
    EXPECT_EQ(layout.Left(2), 104);
    EXPECT_EQ(layout.CaptionBox(1, false).left, 4 + 10 + 4);
    EXPECT_EQ(layout.CaptionBox(1, false).Right(), 4 + 80 + 10 - 2);
    EXPECT_EQ(layout.Hit(Point{9, 5}), 0);
    EXPECT_EQ(layout.Hit(Point{10, 5}), 1);
    EXPECT_EQ(layout.PageLine(false), (Rect{0, 78, 800, 2}));
}

}  // namespace
}  // namespace quillo
