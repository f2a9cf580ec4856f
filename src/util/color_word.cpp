#include "util/color_word.h"

#include <algorithm>
#include <cmath>

namespace quillo {
namespace {

double LinearLight(int channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(ColorWord color) {
    return 0.2126 * LinearLight(color.Red()) + 0.7152 * LinearLight(color.Green()) + 0.0722 * LinearLight(color.Blue());
}

}  // namespace

double ContrastRatio(ColorWord first, ColorWord second) {
    const double a = Luminance(first);
    const double b = Luminance(second);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

ColorWord ReadableOn(ColorWord ground, ColorWord wanted, ColorWord otherwise) {
    constexpr double kLeastContrast = 4.5;
    return ContrastRatio(ground, wanted) >= kLeastContrast ? wanted : otherwise;
}

}  // namespace quillo
