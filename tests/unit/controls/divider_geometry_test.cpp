#include "controls/divider_geometry.h"

#include <gtest/gtest.h>

#include <vector>

#include "controls/system_colors.h"
#include "testing/recording_canvas.h"

namespace quillo {
namespace {

TEST(DividerGeometryTest, OneTallerThanWideIsVertical) {
    struct Case {
        Size size;
        Rect shadow;
        Rect highlight;
    };
    for (const Case& c : {
             Case{Size{2, 100}, Rect{0, 0, 1, 100}, Rect{1, 0, 1, 100}},
             Case{Size{3, 100}, Rect{0, 0, 1, 100}, Rect{1, 0, 1, 100}},
             Case{Size{10, 11}, Rect{4, 0, 1, 11}, Rect{5, 0, 1, 11}},
         }) {
        const DividerGeometry geometry = LayOutDivider(c.size, Size{}, Scale());
        EXPECT_TRUE(geometry.vertical);
        EXPECT_EQ(geometry.shadow, c.shadow) << c.size.width;
        EXPECT_EQ(geometry.highlight, c.highlight) << c.size.width;
    }
}

TEST(DividerGeometryTest, AnyOtherIsHorizontalWithItsGrooveInTheMiddle) {
    struct Case {
        Size size;
        Rect shadow;
        Rect highlight;
    };
    for (const Case& c : {
             Case{Size{100, 2}, Rect{0, 0, 100, 1}, Rect{0, 1, 100, 1}},
             Case{Size{100, 17}, Rect{0, 7, 100, 1}, Rect{0, 8, 100, 1}},
             Case{Size{10, 10}, Rect{0, 4, 10, 1}, Rect{0, 5, 10, 1}},
         }) {
        const DividerGeometry geometry = LayOutDivider(c.size, Size{}, Scale());
        EXPECT_FALSE(geometry.vertical);
        EXPECT_EQ(geometry.shadow, c.shadow) << c.size.height;
        EXPECT_EQ(geometry.highlight, c.highlight) << c.size.height;
    }
}

TEST(DividerGeometryTest, TheCaptionIsAtTheLeftAndTheGrooveEndsBeforeIt) {
    const DividerGeometry geometry = LayOutDivider(Size{200, 20}, Size{50, 13}, Scale());
    EXPECT_EQ(geometry.caption, (Point{0, 2}));  // (20 - 13) / 2 - 1
    EXPECT_EQ(geometry.shadow, (Rect{56, 9, 144, 1}));
    EXPECT_EQ(geometry.highlight, (Rect{56, 10, 144, 1}));
}

TEST(DividerGeometryTest, ACaptionWiderThanTheControlLeavesNoGroove) {
    const DividerGeometry geometry = LayOutDivider(Size{40, 20}, Size{50, 13}, Scale());
    RecordingCanvas canvas;
    PaintDivider(canvas, geometry);
    EXPECT_TRUE(canvas.Calls().empty());
}

TEST(DividerGeometryTest, TheGrooveGrowsWithTheResolution) {
    const DividerGeometry across = LayOutDivider(Size{400, 40}, Size{100, 26}, Scale(192));
    EXPECT_EQ(across.caption, (Point{0, 5}));
    EXPECT_EQ(across.shadow, (Rect{112, 18, 288, 2}));
    EXPECT_EQ(across.highlight, (Rect{112, 20, 288, 2}));
    const DividerGeometry upright = LayOutDivider(Size{4, 200}, Size{}, Scale(192));
    EXPECT_EQ(upright.shadow, (Rect{0, 0, 2, 200}));
    EXPECT_EQ(upright.highlight, (Rect{2, 0, 2, 200}));
}

TEST(DividerGeometryTest, TheGrooveIsShadowThenHighlight) {
    RecordingCanvas canvas;
    PaintDivider(canvas, LayOutDivider(Size{2, 100}, Size{}, Scale()));
    ASSERT_EQ(canvas.Calls().size(), 2U);
    EXPECT_EQ(canvas.Calls()[0].color.value, 0x80000010U) << "the system's button shadow";
    EXPECT_EQ(canvas.Calls()[0].area, (Rect{0, 0, 1, 100}));
    EXPECT_EQ(canvas.Calls()[1].color.value, 0x80000014U) << "the system's button highlight";
    EXPECT_EQ(canvas.Calls()[1].area, (Rect{1, 0, 1, 100}));
}

}  // namespace
}  // namespace quillo
