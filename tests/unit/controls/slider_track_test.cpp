#include "controls/slider_track.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "canvas_calls.h"

namespace quillo {
namespace {

using Call = RecordingCanvas::Call;

Call OutlineOf(const Rect& area, int thickness) {
    Call call;
    call.kind = Call::Kind::Box;
    call.area = area;
    call.size = thickness;
    call.color = ColorWord{0};
    return call;
}

class SliderTrackTest : public testing::Test {
  protected:
    SliderTrackTest() {
        slider_.Resize(Size{102, 20}, Scale());
        slider_.onClick = [this](std::int32_t value) { Log("click", value); };
        slider_.onChange = [this](std::int32_t value) { Log("change", value); };
        slider_.onRepaint = [this] { log_ += "paint "; };
    }

    /// An event with its argument and the slider's value at that moment.
    void Log(const std::string& event, std::int32_t value) {
        log_ += event + std::to_string(value) + "(" + std::to_string(slider_.Value()) + ") ";
    }
    std::string TakeLog() { return std::exchange(log_, {}); }
    std::vector<Call> Painted() const {
        RecordingCanvas canvas;
        slider_.Paint(canvas);
        return canvas.Calls();
    }

    SliderTrack slider_;
    std::string log_;
};

TEST_F(SliderTrackTest, AFreshOneRunsFromZeroToAHundred) {
    const SliderTrack fresh;
    EXPECT_EQ(fresh.Value(), 0);
    EXPECT_EQ(fresh.Min(), 0);
    EXPECT_EQ(fresh.Max(), 100);
    EXPECT_TRUE(fresh.Enabled());
    EXPECT_EQ(fresh.ForeColor().value, 0x8000000DU) << "the system's highlight";
    EXPECT_EQ(fresh.BackColor().value, 0x80000005U) << "the system's window";
}

TEST_F(SliderTrackTest, ASetValueIsClampedAndReported) {
    struct Case {
        std::int32_t written;
        std::int32_t stored;
    };
    for (const Case& c :
         {Case{150, 100}, Case{-5, 0}, Case{42, 42}, Case{100, 100}, Case{0, 0},
          Case{std::numeric_limits<std::int32_t>::max(), 100}, Case{std::numeric_limits<std::int32_t>::min(), 0}}) {
        TakeLog();
        slider_.SetValue(c.written);
        EXPECT_EQ(slider_.Value(), c.stored);
        const std::string stored = std::to_string(c.stored);
        EXPECT_EQ(log_, "paint change" + stored + "(" + stored + ") ") << c.written;
    }
    TakeLog();
    slider_.SetValue(0);
    EXPECT_EQ(TakeLog(), "paint change0(0) ") << "also when it is the old one";
}

TEST_F(SliderTrackTest, BoundsPushTheValueAndEachOtherWithoutAnEvent) {
    struct Case {
        std::optional<std::int32_t> min;
        std::optional<std::int32_t> max;
        std::int32_t expectedMin;
        std::int32_t expectedValue;
        std::int32_t expectedMax;
    };
    for (const Case& c : {
             Case{10, {}, 10, 50, 100},
             Case{60, {}, 60, 60, 100},
             Case{150, {}, 150, 150, 150},
             Case{-20, {}, -20, 50, 100},
             Case{{}, 200, 0, 50, 200},
             Case{{}, 40, 0, 40, 40},
             Case{{}, -10, -10, -10, -10},
         }) {
        SliderProperties properties;
        properties.value = 50;
        slider_.Apply(properties);
        TakeLog();
        if (c.min) slider_.SetMin(*c.min);
        if (c.max) slider_.SetMax(*c.max);
        EXPECT_EQ(slider_.Min(), c.expectedMin);
        EXPECT_EQ(slider_.Value(), c.expectedValue);
        EXPECT_EQ(slider_.Max(), c.expectedMax);
        EXPECT_EQ(TakeLog(), "paint ");
    }
}

TEST_F(SliderTrackTest, PropertiesAreClamped) {
    SliderProperties properties;
    properties.min = 20;
    properties.max = 10;
    properties.value = 50;
    slider_.Apply(properties);
    EXPECT_EQ(slider_.Min(), 20);
    EXPECT_EQ(slider_.Max(), 20);
    EXPECT_EQ(slider_.Value(), 20);
    EXPECT_EQ(TakeLog(), "paint ");
}

TEST_F(SliderTrackTest, TheScaleIsTheInnerWidthOverTheRange) {
    struct Case {
        int width;
        std::int32_t min;
        std::int32_t max;
        double scale;
    };
    for (const Case& c : {Case{102, 0, 100, 1.0}, Case{52, 0, 100, 0.5}, Case{202, -50, 50, 2.0}, Case{3, 0, 1, 1.0},
                          Case{2, 0, 100, 0.0}, Case{1, 0, 100, 0.0}, Case{0, 0, 100, 0.0}, Case{102, 7, 7, 0.0},
                          Case{102, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(),
                               100.0 / 4294967295.0}}) {
        SliderProperties properties;
        properties.min = c.min;
        properties.max = c.max;
        slider_.Apply(properties);
        slider_.Resize(Size{c.width, 20}, Scale());
        EXPECT_DOUBLE_EQ(slider_.PixelsPerUnit(), c.scale) << c.width << ": " << c.min << " to " << c.max;
    }
}

TEST_F(SliderTrackTest, TheMousePicksTheValueUnderIt) {
    struct Case {
        int width;
        std::int32_t max;
        int x;
        std::int32_t value;
    };
    for (const Case& c : {
             Case{102, 100, 51, 50},
             Case{102, 100, 101, 100},
             Case{102, 100, 100, 99},
             Case{102, 100, 5000, 100},
             Case{102, 100, -3, 0},
             Case{102, 100, 0, 0},
             Case{102, 100, 1, 0},
             Case{102, 100, 2, 1},
             Case{202, 100, 2, 0},  // a half rounds to the even number: 0.5
             Case{202, 100, 4, 2},  // 1.5
             Case{202, 100, 6, 2},  // 2.5
             Case{202, 100, 8, 4},  // 3.5
             Case{202, 100, 201, 100},
             Case{52, 100, 2, 2},
         }) {
        SliderProperties properties;
        properties.max = c.max;
        properties.value = 77;
        slider_.Apply(properties);
        slider_.Resize(Size{c.width, 20}, Scale());
        slider_.MouseAt(c.x);
        EXPECT_EQ(slider_.Value(), c.value) << "x " << c.x << " of " << c.width;
    }
}

TEST_F(SliderTrackTest, TheMouseWorksInTheWholeRangeOfNumbers) {
    SliderProperties properties;
    properties.min = std::numeric_limits<std::int32_t>::min();
    properties.max = std::numeric_limits<std::int32_t>::max();
    slider_.Apply(properties);
    slider_.MouseAt(101);
    EXPECT_EQ(slider_.Value(), std::numeric_limits<std::int32_t>::max());
    slider_.MouseAt(-1);
    EXPECT_EQ(slider_.Value(), std::numeric_limits<std::int32_t>::min());
    slider_.MouseAt(51);
    EXPECT_NEAR(slider_.Value(), 0, 1);
}

TEST_F(SliderTrackTest, HandlersOfAPickStillReadTheOldValue) {
    SliderProperties properties;
    properties.value = 10;
    slider_.Apply(properties);
    TakeLog();
    slider_.MouseAt(51);
    EXPECT_EQ(TakeLog(), "click50(10) change50(10) paint ");
    EXPECT_EQ(slider_.Value(), 50);
}

TEST_F(SliderTrackTest, DraggingAcrossTheSameValueRaisesNothing) {
    slider_.Resize(Size{1002, 20}, Scale());  // ten pixels to the unit
    slider_.MouseAt(500);
    TakeLog();
    slider_.MouseAt(501);
    slider_.MouseAt(498);
    EXPECT_EQ(TakeLog(), "");
    slider_.MouseAt(511);
    EXPECT_EQ(TakeLog(), "click51(50) change51(50) paint ");
}

TEST_F(SliderTrackTest, ADisabledOneIgnoresTheMouseAndTheKeyboard) {
    slider_.SetEnabled(false);
    TakeLog();
    slider_.MouseAt(51);
    slider_.Press(SliderKey::ToMax);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(slider_.Value(), 0);
    slider_.SetValue(30);
    EXPECT_EQ(slider_.Value(), 30) << "the form may still set it";
    slider_.SetEnabled(true);
    slider_.MouseAt(51);
    EXPECT_EQ(slider_.Value(), 50);
}

TEST_F(SliderTrackTest, OneTooNarrowOrWithoutARangeNeverReactsToTheMouse) {
    for (const int width : {0, 1, 2}) {
        slider_.Resize(Size{width, 20}, Scale());
        TakeLog();
        for (const int x : {-1, 0, 1, 2, 50}) slider_.MouseAt(x);
        EXPECT_EQ(TakeLog(), "") << width;
    }
    slider_.Resize(Size{102, 20}, Scale());
    slider_.SetMin(100);
    TakeLog();
    slider_.MouseAt(51);
    EXPECT_EQ(TakeLog(), "");
}

TEST_F(SliderTrackTest, KeysMoveTheValueAsThePointerDoes) {
    struct Case {
        SliderKey key;
        std::int32_t from;
        std::int32_t to;
    };
    for (const Case& c :
         {Case{SliderKey::Less, 50, 49}, Case{SliderKey::Less, 0, 0}, Case{SliderKey::More, 50, 51},
          Case{SliderKey::More, 100, 100}, Case{SliderKey::PageLess, 50, 40}, Case{SliderKey::PageLess, 4, 0},
          Case{SliderKey::PageMore, 50, 60}, Case{SliderKey::PageMore, 95, 100}, Case{SliderKey::ToMin, 50, 0},
          Case{SliderKey::ToMax, 50, 100}, Case{SliderKey::ToMax, 100, 100}}) {
        SliderProperties properties;
        properties.value = c.from;
        slider_.Apply(properties);
        TakeLog();
        slider_.Press(c.key);
        EXPECT_EQ(slider_.Value(), c.to);
        EXPECT_EQ(TakeLog().empty(), c.from == c.to) << "nothing is raised at the end of the range";
    }
    slider_.SetMax(3);
    slider_.SetValue(1);
    slider_.Press(SliderKey::PageMore);
    EXPECT_EQ(slider_.Value(), 2) << "a page is at least one";
}

TEST_F(SliderTrackTest, AHandlerMayEndTheSlider) {
    auto slider = std::make_unique<SliderTrack>();
    slider->Resize(Size{102, 20}, Scale());
    std::string seen;
    slider->onClick = [&](std::int32_t value) {
        seen += "click" + std::to_string(value);
        slider.reset();
    };
    slider->onChange = [&](std::int32_t) { seen += "change"; };
    slider->MouseAt(51);
    EXPECT_EQ(seen, "click50") << "nobody is told by a slider that has gone";
}

TEST_F(SliderTrackTest, EveryValueAboveTheLeastFillsAColumn) {
    SliderProperties properties;
    properties.max = 10'000;
    properties.value = 1;
    slider_.Apply(properties);
    EXPECT_EQ(Painted(), (std::vector{FillOf(Rect{2, 1, 99, 18}, kSystemWindow),
                                      FillOf(Rect{1, 1, 1, 18}, kSystemHighlight), OutlineOf(Rect{0, 0, 102, 20}, 1)}));
    slider_.SetValue(0);
    EXPECT_EQ(Painted().size(), 2U);
}

TEST_F(SliderTrackTest, PaintsThePartUpToTheValueAndTheRest) {
    SliderProperties properties;
    properties.value = 30;
    slider_.Apply(properties);
    EXPECT_EQ(Painted(),
              (std::vector{FillOf(Rect{31, 1, 70, 18}, kSystemWindow), FillOf(Rect{1, 1, 30, 18}, kSystemHighlight),
                           OutlineOf(Rect{0, 0, 102, 20}, 1)}));
    slider_.SetValue(0);
    EXPECT_EQ(Painted(), (std::vector{FillOf(Rect{1, 1, 100, 18}, kSystemWindow), OutlineOf(Rect{0, 0, 102, 20}, 1)}));
    slider_.SetValue(100);
    EXPECT_EQ(Painted(),
              (std::vector{FillOf(Rect{1, 1, 100, 18}, kSystemHighlight), OutlineOf(Rect{0, 0, 102, 20}, 1)}));
}

TEST_F(SliderTrackTest, TheKeyboardsFocusIsARingInsideTheOutline) {
    slider_.SetValue(100);
    RecordingCanvas canvas;
    slider_.Paint(canvas, true);
    ASSERT_EQ(canvas.Calls().size(), 4U);
    EXPECT_EQ(canvas.Calls()[1], OutlineOf(Rect{0, 0, 102, 20}, 1));
    EXPECT_EQ(canvas.Calls()[2].area, (Rect{1, 1, 100, 18}));
    EXPECT_EQ(canvas.Calls()[2].color, kSystemWindow);
    EXPECT_EQ(canvas.Calls()[3].area, (Rect{2, 2, 98, 16}));
    EXPECT_EQ(canvas.Calls()[3].color, kSystemWindowText);
}

TEST_F(SliderTrackTest, WithoutARangeTheBarIsFull) {
    slider_.SetMin(150);
    EXPECT_EQ(Painted(),
              (std::vector{FillOf(Rect{1, 1, 100, 18}, kSystemHighlight), OutlineOf(Rect{0, 0, 102, 20}, 1)}));
}

TEST_F(SliderTrackTest, OneTooNarrowIsItsOutline) {
    slider_.Resize(Size{2, 20}, Scale());
    EXPECT_EQ(Painted(), std::vector{OutlineOf(Rect{0, 0, 2, 20}, 1)});
}

TEST_F(SliderTrackTest, ColorsAreThoseGiven) {
    slider_.SetForeColor(ColorWord{0x112233});
    slider_.SetBackColor(ColorWord{0x445566});
    slider_.SetValue(50);
    const std::vector<Call> painted = Painted();
    ASSERT_EQ(painted.size(), 3U);
    EXPECT_EQ(painted[0].color, ColorWord{0x445566});
    EXPECT_EQ(painted[1].color, ColorWord{0x112233});
}

TEST_F(SliderTrackTest, TheOutlineGrowsWithTheResolution) {
    slider_.Resize(Size{204, 40}, Scale(192));
    EXPECT_DOUBLE_EQ(slider_.PixelsPerUnit(), 2.0);
    slider_.MouseAt(102);
    EXPECT_EQ(slider_.Value(), 50);
    EXPECT_EQ(Painted(),
              (std::vector{FillOf(Rect{102, 2, 100, 36}, kSystemWindow), FillOf(Rect{2, 2, 100, 36}, kSystemHighlight),
                           OutlineOf(Rect{0, 0, 204, 40}, 2)}));
    slider_.MouseAt(202);
    EXPECT_EQ(slider_.Value(), 100);
}

}  // namespace
}  // namespace quillo
