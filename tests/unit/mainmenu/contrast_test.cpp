#include <gtest/gtest.h>

#include <algorithm>

#include "controls/button_state.h"
#include "controls/swatch_palette.h"
#include "mainmenu/menu_planes.h"
#include "notes/note_face.h"
#include "reminders/alert_colors.h"

namespace quillo {
namespace {

// The minimum contrast of text, and of glyphs and large text. A note's reminder label, outline and grip have the border
// color by design and are exempt.
constexpr double kText = 4.5;
constexpr double kGlyph = 3;

TEST(Contrast, TheTextOfANoteCanBeReadOnEveryScheme) {
    for (const ColorScheme& scheme : kSwatches) EXPECT_GE(ContrastRatio(scheme.text, scheme.note), kText);
}

TEST(Contrast, TheGlyphsOfANoteHaveContrastOnEverySchemeActiveOrNot) {
    for (std::size_t i = 0; i < kSwatches.size(); ++i) {
        for (const BarStyle style : {BarStyle::Full, BarStyle::Flat, BarStyle::Subtle}) {
            for (const bool active : {true, false}) {
                const DragBarPaint bar = DragBarColors(kSwatches[i].note, kSwatches[i].border, style, active);
                // The glyphs are in the middle of the bar.
                const ColorWord ground = Mix(bar.top, bar.bottom, 50);
                const ColorWord glyph = Mix(bar.glyph, ground, active ? 100 : kFaintGlyphPercent);
                EXPECT_GE(ContrastRatio(glyph, ground), kGlyph)
                    << "scheme " << i << " style " << static_cast<int>(style) << " active " << active;
            }
        }
    }
}

TEST(Contrast, AnAlertCanBeReadOnEveryScheme) {
    for (std::size_t i = 0; i < kSwatches.size(); ++i) {
        const AlertPaint alert = AlertPaintOf({kSwatches[i].note, kSwatches[i].border, kSwatches[i].text});
        EXPECT_GE(ContrastRatio(alert.ink, alert.paper), kText) << "scheme " << i;
        EXPECT_GE(ContrastRatio(alert.quiet, alert.paper), kText) << "scheme " << i;
        EXPECT_GE(ContrastRatio(alert.glyph, alert.strip), kText) << "scheme " << i << ": the title too";
    }
}

/// The color of a part of the menu's drawing on that background.
ColorWord On(ColorWord ground, const MenuColors& colors, MenuPlane plane) {
    const MenuColors::Tint& tint = colors.tints[static_cast<std::size_t>(plane)];
    return Mix(tint.color, ground, tint.percent);
}

TEST(Contrast, TheMenuCanBeReadAtRestAndUnderThePointer) {
    for (const MenuFace face : {MenuFace::Normal, MenuFace::Highlighted}) {
        const MenuColors colors = ColorsOf(face);
        for (const ColorWord under : {colors.surface, On(colors.surface, colors, MenuPlane::Panel)}) {
            const ColorWord ground = On(under, colors, MenuPlane::Tile);
            EXPECT_GE(ContrastRatio(On(ground, colors, MenuPlane::Ink), ground), kText);
            EXPECT_GE(ContrastRatio(On(ground, colors, MenuPlane::Glyph), ground), kGlyph);
        }
        // The signs inside the glyphs are on their sheets.
        const ColorWord sheet = On(colors.surface, colors, MenuPlane::Paper);
        EXPECT_GE(ContrastRatio(On(sheet, colors, MenuPlane::Glyph), sheet), kGlyph);
    }
}

}  // namespace
}  // namespace quillo
