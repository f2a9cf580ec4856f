#include "reminders/alert_colors.h"

#include "util/palette.h"

namespace quillo {
namespace {

constexpr double kReadable = 4.5;  // the minimum contrast of text
constexpr int kEdgePercent = 72;   // of the note's border color; the rest is ink
constexpr int kQuietPercent = 62;  // of the text's color; the rest is paper

/// The text color if it is readable, else ink or its light counterpart.
ColorWord ReadableOn(ColorWord paper, ColorWord text) {
    if (ContrastRatio(text, paper) >= kReadable) return text;
    return ContrastRatio(palette::kInk, paper) >= ContrastRatio(palette::kLightInk, paper) ? palette::kInk
                                                                                           : palette::kLightInk;
}

}  // namespace

AlertPaint AlertPaintOf(const AlertColors& colors) {
    AlertPaint paint;
    paint.paper = colors.paper;
    paint.strip = colors.edge;
    paint.edge = Mix(colors.edge, palette::kInk, kEdgePercent);
    paint.ink = ReadableOn(colors.paper, colors.text);
    paint.quiet = ReadableOn(colors.paper, Mix(paint.ink, colors.paper, kQuietPercent));
    paint.glyph = ReadableOn(colors.edge, palette::kInk);
    return paint;
}

}  // namespace quillo
