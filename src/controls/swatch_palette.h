#pragma once

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "util/color_word.h"

namespace quillo {

class Random;

/// Three colors that belong together.
struct ColorScheme {
    ColorWord note;
    ColorWord border;
    ColorWord text;
    friend constexpr bool operator==(const ColorScheme&, const ColorScheme&) = default;
};

/// A scheme that a note can be given, and its name for screen readers and for the command line.
struct NamedScheme {
    std::u16string_view name;
    ColorScheme colors;
};

/// Every scheme, in the order of the strip. A new scheme is a new row; everything else follows from this table.
inline constexpr NamedScheme kNamedSwatches[] = {
    {u"Yellow",
     {ColorWord::FromRgb(0xFF, 0xFD, 0xD0), ColorWord::FromRgb(0xFE, 0xCF, 0x38), ColorWord::FromRgb(0, 0, 0)}},
    {u"Blue",
     {ColorWord::FromRgb(0xE0, 0xEE, 0xF4), ColorWord::FromRgb(0x7B, 0xA9, 0xD3), ColorWord::FromRgb(0, 0, 0)}},
    {u"Green",
     {ColorWord::FromRgb(0xE9, 0xFD, 0xEC), ColorWord::FromRgb(0x72, 0xAE, 0x7F), ColorWord::FromRgb(0, 0, 0)}},
    {u"Purple",
     {ColorWord::FromRgb(0xF3, 0xE2, 0xFF), ColorWord::FromRgb(0xBB, 0xA9, 0xDB), ColorWord::FromRgb(0, 0, 0)}},
    {u"Orange",
     {ColorWord::FromRgb(0xFE, 0xE6, 0xDC), ColorWord::FromRgb(0xFE, 0x84, 0x60), ColorWord::FromRgb(0, 0, 0)}},
    {u"White",
     {ColorWord::FromRgb(0xFC, 0xFC, 0xFC), ColorWord::FromRgb(0xB3, 0xC4, 0xD2), ColorWord::FromRgb(0, 0, 0)}},
    {u"Bright yellow",
     {ColorWord::FromRgb(0xFF, 0xF8, 0x50), ColorWord::FromRgb(0xFF, 0x8D, 0x00), ColorWord::FromRgb(0, 0, 0)}},
    {u"Red",
     {ColorWord::FromRgb(0xA7, 0x1D, 0x23), ColorWord::FromRgb(0xFF, 0xFF, 0xFF),
      ColorWord::FromRgb(0xFF, 0xFF, 0xFF)}},
    {u"Black and yellow",
     {ColorWord::FromRgb(0, 0, 0), ColorWord::FromRgb(0xFE, 0xFE, 0x00), ColorWord::FromRgb(0xFE, 0xFE, 0x00)}},
    {u"Black and green",
     {ColorWord::FromRgb(0, 0, 0), ColorWord::FromRgb(0xB4, 0xFE, 0x2C), ColorWord::FromRgb(0xB4, 0xFE, 0x2C)}},
    {u"Black and blue",
     {ColorWord::FromRgb(0, 0, 0), ColorWord::FromRgb(0x10, 0xEF, 0xFE), ColorWord::FromRgb(0x10, 0xEF, 0xFE)}},
};

/// Their colors alone.
inline constexpr std::array<ColorScheme, std::size(kNamedSwatches)> kSwatches = [] {
    std::array<ColorScheme, std::size(kNamedSwatches)> colors{};
    std::transform(std::begin(kNamedSwatches), std::end(kNamedSwatches), colors.begin(),
                   [](const NamedScheme& scheme) { return scheme.colors; });
    return colors;
}();

/// Only the first five schemes, the pale ones, are chosen at random (intended: a dark note is the user's own choice).
inline constexpr int kRandomSwatches = 5;
static_assert(kRandomSwatches <= kSwatches.size());

/// One of the pale schemes, each equally likely; draws one number.
[[nodiscard]] const ColorScheme& RandomScheme(Random& random);

}  // namespace quillo
