#include "notes/note_face.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

#include "controls/swatch_palette.h"
#include "testing/fake_locale_text.h"
#include "testing/recording_canvas.h"

namespace quillo {
namespace {

using Call = RecordingCanvas::Call;
using Kind = Call::Kind;

constexpr Size kNewNote{188, 163};
const NotePaint kColors{kSwatches[0].note, kSwatches[0].border};
const Scale kDesign{96};

TEST(NoteLayout, NewNoteAtDesignResolution) {
    const NoteLayout layout = LayOutNote(kNewNote, kDesign);
    EXPECT_EQ(layout.dragBar, (Rect{1, 1, 186, 20}));
    EXPECT_EQ(layout.menuButton, (Rect{1, 1, 20, 20}));
    EXPECT_EQ(layout.pushpin, (Rect{147, 1, 20, 20}));
    EXPECT_EQ(layout.closeButton, (Rect{167, 1, 20, 20}));
    EXPECT_EQ(layout.messageBox, (Rect{1, 24, 186, 127}));
    EXPECT_EQ(kNewNote.height - layout.messageBox.Bottom(), 12) << "free for the reminder label and the grip";
    EXPECT_EQ(layout.reminderLabel, (Rect{4, 151, 164, 12}));
}

TEST(NoteLayout, DoublesAtTwiceTheResolution) {
    const NoteLayout layout = LayOutNote({376, 326}, Scale{192});
    EXPECT_EQ(layout.dragBar, (Rect{2, 2, 372, 40}));
    EXPECT_EQ(layout.menuButton, (Rect{2, 2, 40, 40}));
    EXPECT_EQ(layout.pushpin, (Rect{294, 2, 40, 40}));
    EXPECT_EQ(layout.closeButton, (Rect{334, 2, 40, 40}));
    EXPECT_EQ(layout.messageBox, (Rect{2, 48, 372, 254}));
}

TEST(NoteLayout, ANarrowNoteKeepsItsCloseButton) {
    const NoteLayout layout = LayOutNote({32, 163}, kDesign);
    EXPECT_EQ(layout.closeButton, (Rect{11, 1, 20, 20}));
    EXPECT_EQ(layout.menuButton, (Rect{1, 1, 10, 20}));
    EXPECT_EQ(layout.pushpin.width, 0);
}

TEST(NoteLayout, IsSoundAtEverySize) {
    for (const int dpi : {96, 120, 144, 192}) {
        for (int width = 0; width <= 140; width += 3) {
            for (int height = 0; height <= 90; ++height) {
                const NoteLayout layout = LayOutNote({width, height}, Scale{dpi});
                for (const Rect& part : {layout.dragBar, layout.menuButton, layout.saveSign, layout.pushpin,
                                         layout.closeButton, layout.messageBox, layout.reminderLabel}) {
                    ASSERT_GE(part.width, 0) << width << 'x' << height;
                    ASSERT_GE(part.height, 0) << width << 'x' << height;
                    if (part.width == 0 || part.height == 0) continue;
                    ASSERT_LE(part.Right(), width);
                    ASSERT_LE(part.Bottom(), height);
                }
                ASSERT_EQ(layout.menuButton.Right(), layout.saveSign.left);
                ASSERT_LE(layout.saveSign.Right(), layout.pushpin.left);
                ASSERT_EQ(layout.pushpin.Right(), layout.closeButton.left);
                ASSERT_GE(layout.messageBox.top, layout.dragBar.Bottom());
                ASSERT_GE(layout.reminderLabel.top, layout.messageBox.Bottom());
            }
        }
    }
}

TEST(PartsToPaint, CoverTheNoteButNotItsTextBox) {
    for (const int width : {0, 1, 5, 40, 188}) {
        for (const int height : {0, 1, 12, 30, 163}) {
            const Rect textBox = LayOutNote(Size{width, height}, Scale(96)).messageBox;
            const std::vector<Rect> parts = PartsToPaint(Size{width, height}, textBox, Rect{0, 0, width, height});
            for (int y = 0; y < height; ++y) {
                for (int x = 0; x < width; ++x) {
                    const auto covers = [&](const Rect& part) { return part.Contains(Point{x, y}); };
                    ASSERT_EQ(std::count_if(parts.begin(), parts.end(), covers), covers(textBox) ? 0 : 1)
                        << x << "," << y << " of " << width << "x" << height;
                }
            }
        }
    }
}

TEST(PartsToPaint, AreThoseOfTheAreaOnly) {
    const Rect textBox = LayOutNote(Size{188, 163}, Scale(96)).messageBox;
    EXPECT_EQ(PartsToPaint(Size{188, 163}, textBox, Rect{1, 1, 20, 20}), std::vector<Rect>{(Rect{1, 1, 20, 20})});
    EXPECT_TRUE(PartsToPaint(Size{188, 163}, textBox, Rect{50, 60, 30, 30}).empty());
}

TEST(HitTestNote, OnlyTheLowerEdgeResizes) {
    const int w = kNewNote.width;
    const int h = kNewNote.height;
    const struct {
        Point at;
        NoteHit hit;
    } cases[] = {
        {{w - 1, h - 1}, NoteHit::BottomRight},
        {{w - 13, h - 1}, NoteHit::Bottom},
        {{w - 12, h - 1}, NoteHit::Bottom},
        {{w - 11, h - 1}, NoteHit::BottomRight},
        {{0, h - 1}, NoteHit::Bottom},
        {{w - 1, h - 11}, NoteHit::BottomRight},
        {{w - 1, h - 12}, NoteHit::Nothing},
        {{0, h - 12}, NoteHit::Nothing},
        {{0, h - 11}, NoteHit::Bottom},
        {{w - 1, 0}, NoteHit::Nothing},
        {{0, 0}, NoteHit::Nothing},
    };
    for (const auto& c : cases) EXPECT_EQ(HitTestNote(c.at, kNewNote, kDesign), c.hit) << c.at.x << ',' << c.at.y;
}

TEST(HitTestNote, TheEdgeScales) {
    const Scale twice{192};
    EXPECT_EQ(HitTestNote({375, 302}, {376, 326}, twice), NoteHit::Nothing);
    EXPECT_EQ(HitTestNote({375, 303}, {376, 326}, twice), NoteHit::BottomRight);
    EXPECT_EQ(HitTestNote({352, 303}, {376, 326}, twice), NoteHit::Bottom);
}

DaySerial At(int year, int month, int day, int hour, int minute, int second = 0) {
    return ToDaySerial(CivilTime{year, month, day, hour, minute, second});
}

TEST(ReminderLabel, TodayShowsOnlyTheTime) {
    FakeLocaleText locale;
    const DaySerial now = At(2026, 3, 14, 9, 0);
    const struct {
        DaySerial due;
        const char16_t* label;
    } cases[] = {
        {At(2026, 3, 14, 17, 5), u"5:05 pm"},  {At(2026, 3, 14, 0, 0), u"12:00 am"},
        {At(2026, 3, 14, 0, 59), u"12:59 am"}, {At(2026, 3, 14, 12, 0), u"12:00 pm"},
        {At(2026, 3, 14, 11, 9), u"11:09 am"}, {At(2026, 3, 14, 23, 59, 59), u"11:59 pm"},
    };
    for (const auto& c : cases) EXPECT_EQ(ReminderLabel(c.due, now, locale), c.label);
}

TEST(ReminderLabel, AnotherDayShowsTheShortDateToo) {
    FakeLocaleText locale;
    const DaySerial due = At(2026, 3, 15, 8, 30);
    EXPECT_EQ(ReminderLabel(due, At(2026, 3, 14, 9, 0), locale), locale.ShortDate(due) + u"  8:30 am");
}

TEST(ReminderLabel, IntendedTheSameDayOfAnotherMonthShowsOnlyTheTime) {
    FakeLocaleText locale;
    EXPECT_EQ(ReminderLabel(At(2026, 4, 14, 8, 30), At(2026, 3, 14, 9, 0), locale), u"8:30 am");
}

Call Filled(const Rect& area) {
    Call call;
    call.area = area;
    call.color = kColors.note;
    return call;
}

Call Boxed(const Rect& area, int thickness) {
    Call call = Filled(area);
    call.kind = Kind::Box;
    call.size = thickness;
    call.color = kColors.border;
    return call;
}

Call Lined(Point from, Point to, int thickness) {
    Call call;
    call.kind = Kind::Line;
    call.from = from;
    call.to = to;
    call.size = thickness;
    call.color = kColors.border;
    return call;
}

Call Labeled(Point at, const char16_t* text) {
    Call call;
    call.kind = Kind::Text;
    call.from = at;
    call.size = 7;
    call.text = text;
    call.color = kColors.border;
    return call;
}

TEST(PaintNote, OutlineFillAndGrip) {
    RecordingCanvas canvas;
    PaintNote(canvas, kNewNote, kDesign, kColors, u"");
    const std::vector<Call> expected{
        Boxed({0, 0, 188, 163}, 1),       Filled({1, 1, 186, 161}),         Lined({179, 162}, {187, 154}, 1),
        Lined({182, 162}, {187, 157}, 1), Lined({185, 162}, {187, 160}, 1),
    };
    EXPECT_EQ(canvas.Calls(), expected);
}

TEST(PaintNote, TheLabelComesBeforeTheGripAndNeverCoversIt) {
    RecordingCanvas canvas;
    PaintNote(canvas, kNewNote, kDesign, kColors, u"5:05 pm");
    const std::vector<Call> expected{
        Boxed({0, 0, 188, 163}, 1),       Filled({1, 1, 186, 161}),         Labeled({4, 151}, u"5:05 pm"),
        Filled({168, 154, 19, 8}),        Lined({179, 162}, {187, 154}, 1), Lined({182, 162}, {187, 157}, 1),
        Lined({185, 162}, {187, 160}, 1),
    };
    EXPECT_EQ(canvas.Calls(), expected);
}

TEST(PaintNote, ScalesEveryFigure) {
    RecordingCanvas canvas;
    PaintNote(canvas, {376, 326}, Scale{192}, kColors, u"5:05 pm");
    const std::vector<Call> expected{
        Boxed({0, 0, 376, 326}, 2),       Filled({2, 2, 372, 322}),         Labeled({8, 302}, u"5:05 pm"),
        Filled({336, 308, 38, 16}),       Lined({358, 325}, {375, 308}, 2), Lined({364, 325}, {375, 314}, 2),
        Lined({370, 325}, {375, 320}, 2),
    };
    EXPECT_EQ(canvas.Calls(), expected);
}

TEST(PaintNote, KeepsTheGripsLinesApartBetweenWholeScales) {
    RecordingCanvas canvas;
    PaintNote(canvas, {282, 245}, Scale{144}, kColors, u"");
    const std::vector<Call> expected{
        Boxed({0, 0, 282, 245}, 2),       Filled({2, 2, 278, 241}),         Lined({268, 244}, {281, 231}, 1),
        Lined({273, 244}, {281, 236}, 1), Lined({277, 244}, {281, 240}, 1),
    };
    EXPECT_EQ(canvas.Calls(), expected);
}

TEST(PaintNote, FillsNothingEmptyAtAnySize) {
    for (int width = 0; width < 30; ++width) {
        for (int height = 0; height < 30; ++height) {
            RecordingCanvas canvas;
            PaintNote(canvas, {width, height}, kDesign, kColors, u"5:05 pm");
            EXPECT_EQ(canvas.Calls().empty(), width == 0 || height == 0);
            for (const Call& call : canvas.Calls()) {
                if (call.kind != Kind::Fill) continue;
                ASSERT_TRUE(call.area.width > 0 && call.area.height > 0) << width << 'x' << height;
                ASSERT_TRUE(call.area.left >= 1 && call.area.Right() <= width - 1) << "the border stays";
                ASSERT_TRUE(call.area.top >= 1 && call.area.Bottom() <= height - 1) << "the border stays";
            }
        }
    }
}

TEST(ReadableOn, ATextThatCannotBeReadTakesTheOtherColor) {
    const ColorWord black = ColorWord::FromRgb(0, 0, 0);
    const ColorWord white = ColorWord::FromRgb(0xFF, 0xFF, 0xFF);
    const ColorWord blue = ColorWord::FromRgb(0, 0x66, 0xCC);
    const ColorWord pale = ColorWord::FromRgb(0xE0, 0xE0, 0xE0);
    EXPECT_EQ(ReadableOn(white, blue, black), blue);
    EXPECT_EQ(ReadableOn(white, pale, black), black);
    EXPECT_EQ(ReadableOn(black, pale, white), pale);
}

TEST(ContrastRatio, KnownPairs) {
    const ColorWord black = ColorWord::FromRgb(0, 0, 0);
    const ColorWord white = ColorWord::FromRgb(255, 255, 255);
    EXPECT_NEAR(ContrastRatio(black, white), 21, 0.001);
    EXPECT_NEAR(ContrastRatio(white, black), 21, 0.001);
    EXPECT_DOUBLE_EQ(ContrastRatio(white, white), 1);
    EXPECT_NEAR(ContrastRatio(ColorWord::FromRgb(0x77, 0x77, 0x77), white), 4.48, 0.01);
}

TEST(DragBarColors, GradientFromTheBorderTowardTheNote) {
    const ColorWord note = ColorWord::FromRgb(200, 100, 0);
    const ColorWord border = ColorWord::FromRgb(0, 0, 100);
    const DragBarPaint active = DragBarColors(note, border, BarStyle::Full, true);
    EXPECT_EQ(active.top, border);
    EXPECT_EQ(active.bottom, ColorWord::FromRgb(70, 35, 65));

    const DragBarPaint inactive = DragBarColors(note, border, BarStyle::Full, false);
    EXPECT_EQ(inactive.top, ColorWord::FromRgb(100, 50, 50));
    EXPECT_EQ(inactive.bottom, ColorWord::FromRgb(135, 68, 33));
}

TEST(DragBarColors, FlatIsOneColor) {
    const DragBarPaint active = DragBarColors(kColors.note, kColors.border, BarStyle::Flat, true);
    EXPECT_EQ(active.top, kColors.border);
    EXPECT_EQ(active.bottom, kColors.border);
    const DragBarPaint inactive = DragBarColors(kColors.note, kColors.border, BarStyle::Flat, false);
    EXPECT_EQ(inactive.top, inactive.bottom);
    EXPECT_NE(inactive.top, kColors.border);
}

TEST(DragBarColors, TheUserDecidesAboutSubtleBarsBeforeTheSystem) {
    EXPECT_EQ(BarStyleFor(false, false), BarStyle::Full);
    EXPECT_EQ(BarStyleFor(false, true), BarStyle::Flat);
    EXPECT_EQ(BarStyleFor(true, false), BarStyle::Subtle);
    EXPECT_EQ(BarStyleFor(true, true), BarStyle::Subtle);
}

TEST(DragBarColors, ASubtleBarIsCalmerOnEveryScheme) {
    for (const ColorScheme& scheme : kSwatches) {
        for (const bool active : {false, true}) {
            const DragBarPaint subtle = DragBarColors(scheme.note, scheme.border, BarStyle::Subtle, active);
            const DragBarPaint full = DragBarColors(scheme.note, scheme.border, BarStyle::Full, active);
            EXPECT_EQ(subtle.top, subtle.bottom);
            EXPECT_NE(subtle.top, scheme.note) << "there still is a bar";
            // In the middle of the bar, which is its strongest part in one scheme and its weakest in another.
            EXPECT_LT(ContrastRatio(subtle.top, scheme.note),
                      ContrastRatio(Mix(full.top, full.bottom, 50), scheme.note));
        }
    }
}

double WorstContrast(const DragBarPaint& bar) {
    const ColorWord middle = Mix(bar.top, bar.bottom, 50);
    return std::min(
        {ContrastRatio(bar.glyph, bar.top), ContrastRatio(bar.glyph, middle), ContrastRatio(bar.glyph, bar.bottom)});
}

TEST(DragBarColors, GlyphsHaveContrastOnEveryScheme) {
    for (std::size_t i = 0; i < kSwatches.size(); ++i) {
        for (const BarStyle style : {BarStyle::Full, BarStyle::Flat, BarStyle::Subtle}) {
            for (const bool active : {false, true}) {
                const DragBarPaint bar = DragBarColors(kSwatches[i].note, kSwatches[i].border, style, active);
                EXPECT_GE(WorstContrast(bar), 3.0)
                    << "scheme " << i << " style " << static_cast<int>(style) << " active " << active;
            }
        }
    }
}

TEST(DragBarColors, GlyphsHaveContrastOnAFlatBarOfAnyColor) {
    std::mt19937 engine(7);
    std::uniform_int_distribution<int> channel(0, 255);
    for (int i = 0; i < 5'000; ++i) {
        const ColorWord note = ColorWord::FromRgb(channel(engine), channel(engine), channel(engine));
        const ColorWord border = ColorWord::FromRgb(channel(engine), channel(engine), channel(engine));
        ASSERT_GE(WorstContrast(DragBarColors(note, border, BarStyle::Flat, true)), 3.0) << border.value;
    }
}

TEST(PlaceNewNote, ScattersAroundTheMiddle) {
    const Size screen{28'800, 16'200};
    const Size note{2'820, 2'445};
    // 25980 / 2 horizontally; 13755 / 2 drops the half twip vertically.
    EXPECT_EQ(PlaceNewNote(screen, note, 0, 0), (Point{12'990 - 750, 6'877 - 750}));
    EXPECT_EQ(PlaceNewNote(screen, note, 0.5, 0.5), (Point{12'990, 6'877}));
    EXPECT_EQ(PlaceNewNote(screen, note, 0.9999, 0), (Point{12'990 + 749, 6'877 - 750}));
    EXPECT_EQ(PlaceNewNote(screen, note, 0.25, 0.75), (Point{12'990 - 375, 6'877 + 375}));
    EXPECT_EQ(PlaceNewNote(screen, note, 0.5006, 0.49999), (Point{12'990, 6'877 - 1})) << "fractions are dropped";
}

TEST(PlaceNewNote, ANoteLargerThanTheScreen) {
    EXPECT_EQ(PlaceNewNote({1'000, 1'000}, {1'003, 2'000}, 0.5, 0.5), (Point{-1, -500}));
}

}  // namespace
}  // namespace quillo
