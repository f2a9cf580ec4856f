#include "controls/swatch_strip.h"

#include <gtest/gtest.h>

#include <set>

#include "controls/system_colors.h"
#include "testing/recording_canvas.h"

namespace quillo {
namespace {

using Call = RecordingCanvas::Call;

TEST(SwatchStrip, AReleaseInTwipsPicksTheSwatchBelowIt) {
    const struct {
        int x;
        std::size_t index;
    } cases[] = {{0, 0}, {359, 0}, {360, 1}, {719, 1}, {720, 2}, {3599, 9}, {3600, 10}, {3959, 10}};
    for (const auto& c : cases) EXPECT_EQ(HitStrip(c.x, 0), c.index) << c.x;
}

TEST(SwatchStrip, TheMarginRightOfTheLastSwatchPicksNothing) {
    EXPECT_EQ(HitStrip(3960, 10), std::nullopt);
    EXPECT_EQ(HitStrip(3974, 200), std::nullopt) << "where the last label reaches into the margin";
    EXPECT_EQ(HitStrip(4019, 10), std::nullopt);
}

TEST(SwatchStrip, OutsideTheStripNothingIsPicked) {
    for (const Point at : {Point{-1, 10}, Point{4020, 10}, Point{10, -1}, Point{10, 415}}) {
        EXPECT_EQ(HitStrip(at.x, at.y), std::nullopt) << at.x << ", " << at.y;
    }
    EXPECT_EQ(HitStrip(10, 414), 0U) << "below the swatches the strip counts";
}

TEST(SwatchStrip, WhereALabelExtendsIntoTheNextSwatchThatSwatchWins) {
    // The label of swatch 3 ends at 3 * 360 + 120 + 255.
    EXPECT_EQ(HitStrip(1200, 130), 3U);
    EXPECT_EQ(HitStrip(1439, 130), 3U);
    EXPECT_EQ(HitStrip(1440, 130), 4U);
    EXPECT_EQ(HitStrip(1454, 130), 4U);
}

TEST(SwatchStrip, FiguresAreLiteralAtTheDesignsResolution) {
    const SwatchStrip strip;
    EXPECT_EQ(strip.StripSize(), (Size{268, 28}));
    EXPECT_EQ(strip.PlaceOf(0), (Rect{0, 0, 24, 24}));
    EXPECT_EQ(strip.PlaceOf(10), (Rect{240, 0, 24, 24}));
}

TEST(SwatchStrip, EveryPixelOfASwatchPicksItAtEveryResolution) {
    for (const int dpi : {96, 120, 144, 168, 192, 240}) {
        SwatchStrip strip;
        strip.SetScale(Scale(dpi));
        for (std::size_t i = 0; i < kSwatches.size(); ++i) {
            const Rect place = strip.PlaceOf(i);
            EXPECT_EQ(strip.SwatchAt(Point{place.left, 0}), i) << dpi;
            EXPECT_EQ(strip.SwatchAt(Point{place.Right() - 1, place.height - 1}), i) << dpi;
        }
        const Size size = strip.StripSize();
        EXPECT_EQ(strip.SwatchAt(Point{strip.PlaceOf(10).Right(), 0}), std::nullopt) << dpi;
        EXPECT_EQ(strip.SwatchAt(Point{0, size.height - 1}), 0U) << dpi;
        EXPECT_EQ(strip.SwatchAt(Point{0, size.height}), std::nullopt) << dpi;
        EXPECT_EQ(strip.SwatchAt(Point{-1, 0}), std::nullopt) << dpi;
        EXPECT_EQ(strip.SwatchAt(Point{0, -1}), std::nullopt) << dpi;
    }
}

TEST(SwatchStrip, DrawsEachSchemeAsItsNoteWillLook) {
    RecordingCanvas canvas;
    const SwatchStrip strip;
    strip.Paint(canvas, false);
    ASSERT_EQ(canvas.Calls().size(), 3 * kSwatches.size());
    for (std::size_t i = 0; i < kSwatches.size(); ++i) {
        const Call& fill = canvas.Calls()[3 * i];
        const Call& outline = canvas.Calls()[3 * i + 1];
        const Call& label = canvas.Calls()[3 * i + 2];
        EXPECT_EQ(fill.kind, Call::Kind::Fill);
        EXPECT_EQ(fill.area, strip.PlaceOf(i));
        EXPECT_EQ(fill.color, kSwatches[i].note);
        EXPECT_EQ(outline.kind, Call::Kind::Box);
        EXPECT_EQ(outline.area, strip.PlaceOf(i));
        EXPECT_EQ(outline.color, kSwatches[i].border);
        EXPECT_EQ(label.text, u"Aa");
        EXPECT_EQ(label.from, (Point{24 * static_cast<int>(i) + 8, 8}));
        EXPECT_EQ(label.color, kSwatches[i].text);
    }
}

TEST(SwatchStrip, TheMarkShowsWithTheKeyboardOnlyAndOnItsSwatch) {
    SwatchStrip strip;
    strip.SetMark(8);
    RecordingCanvas plain;
    strip.Paint(plain, false);
    RecordingCanvas focused;
    strip.Paint(focused, true);
    ASSERT_EQ(focused.Calls().size(), plain.Calls().size() + 2);
    const Call& ring = focused.Calls()[plain.Calls().size()];
    EXPECT_EQ(ring.color, kSwatches[8].text) << "which can be told from the paper";
    EXPECT_EQ(ring.area, (Rect{194, 2, 20, 20}));
    const Call& bar = focused.Calls().back();
    EXPECT_EQ(bar.color, kSystemHighlight);
    EXPECT_EQ(bar.area, (Rect{192, 26, 24, 2})) << "in the space below; the swatch stays as it is";
}

TEST(SwatchStrip, KeysMoveTheMarkAndStopAtTheEnds) {
    SwatchStrip strip;
    strip.Press(StripKey::Back);
    EXPECT_EQ(strip.Mark(), 0U);
    strip.Press(StripKey::Forward);
    strip.Press(StripKey::Forward);
    EXPECT_EQ(strip.Mark(), 2U);
    strip.Press(StripKey::Back);
    EXPECT_EQ(strip.Mark(), 1U);
    strip.Press(StripKey::Last);
    EXPECT_EQ(strip.Mark(), 10U);
    strip.Press(StripKey::Forward);
    EXPECT_EQ(strip.Mark(), 10U);
    strip.Press(StripKey::First);
    EXPECT_EQ(strip.Mark(), 0U);
}

TEST(SwatchStrip, EverySwatchHasANameOfItsOwn) {
    std::set<std::u16string_view> names;
    for (std::size_t i = 0; i < kSwatches.size(); ++i) names.insert(SwatchName(i));
    EXPECT_EQ(names.size(), kSwatches.size());
    EXPECT_EQ(names.count(u""), 0U);
    EXPECT_EQ(SwatchName(8), u"Black and yellow");
}

}  // namespace
}  // namespace quillo
