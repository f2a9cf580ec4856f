#include "reminders/alert_colors.h"

namespace quillo {
namespace {

constexpr ColorWord kDarkInk = ColorWord::FromRgb(0x2B, 0x2A, 0x27);
constexpr ColorWord kLightInk = ColorWord::FromRgb(0xF4, 0xF1, 0xE6);
constexpr double kReadable = 4.5;  // the minimum contrast of text
constexpr int kEdgePercent = 72;   // of the note's border color; the rest is ink
constexpr int kQuietPercent = 62;  // of the text's color; the rest is paper

/// The text color if it is readable, else ink or its light counterpart.
ColorWord ReadableOn(ColorWord paper, ColorWord text) {
    if (ContrastRatio(text, paper) >= kReadable) return text;
    return ContrastRatio(kDarkInk, paper) >= ContrastRatio(kLightInk, paper) ? kDarkInk : kLightInk;
}

}  // namespace

AlertPaint AlertPaintOf(const AlertColors& colors) {
    AlertPaint paint;
    paint.paper = colors.paper;
    paint.strip = colors.edge;
    paint.edge = Mix(colors.edge, kDarkInk, kEdgePercent);
    paint.ink = ReadableOn(colors.paper, colors.text);
    paint.quiet = ReadableOn(colors.paper, Mix(paint.ink, colors.paper, kQuietPercent));
    paint.glyph = ReadableOn(colors.edge, kDarkInk);
    return paint;
}

}  // namespace quillo
