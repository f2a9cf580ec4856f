#pragma once

#include <cstdint>

namespace quillo {

/// A color: 0x00BBGGRR, or, with the high bit set, a reference to a system color (its index in the low byte) that is
/// resolved only when drawing. Files and the registry hold it as a signed decimal number.
struct ColorWord {
    std::uint32_t value = 0;

    [[nodiscard]] static constexpr ColorWord FromNumber(std::int32_t number) {
        return ColorWord{static_cast<std::uint32_t>(number)};
    }
    [[nodiscard]] static constexpr ColorWord FromRgb(int red, int green, int blue) {
        return ColorWord{static_cast<std::uint32_t>(red) | static_cast<std::uint32_t>(green) << 8 |
                         static_cast<std::uint32_t>(blue) << 16};
    }
    [[nodiscard]] constexpr std::int32_t Number() const { return static_cast<std::int32_t>(value); }
    [[nodiscard]] constexpr bool IsSystemColor() const { return (value & 0x80000000U) != 0; }
    [[nodiscard]] constexpr int SystemColorIndex() const { return static_cast<int>(value & 0xFFU); }
    [[nodiscard]] constexpr int Red() const { return static_cast<int>(value & 0xFFU); }
    [[nodiscard]] constexpr int Green() const { return static_cast<int>(value >> 8 & 0xFFU); }
    [[nodiscard]] constexpr int Blue() const { return static_cast<int>(value >> 16 & 0xFFU); }
    friend constexpr bool operator==(ColorWord, ColorWord) = default;
};

/// `percent` of `first` and the rest of `second`, per channel, rounded. Both must be plain RGB colors.
[[nodiscard]] constexpr ColorWord Mix(ColorWord first, ColorWord second, int percent) {
    const auto channel = [percent](int a, int b) { return (a * percent + b * (100 - percent) + 50) / 100; };
    return ColorWord::FromRgb(channel(first.Red(), second.Red()), channel(first.Green(), second.Green()),
                              channel(first.Blue(), second.Blue()));
}

/// Perceived lightness, 0 (black) to 255 (white). `color` must be plain RGB.
[[nodiscard]] constexpr int Lightness(ColorWord color) {
    return (color.Red() * 299 + color.Green() * 587 + color.Blue() * 114 + 500) / 1000;
}

/// The contrast of two plain RGB colors, from 1 (none) to 21 (black on white).
[[nodiscard]] double ContrastRatio(ColorWord first, ColorWord second);
/// The wanted color of a text, or `otherwise` where the wanted one cannot be read on its ground.
[[nodiscard]] ColorWord ReadableOn(ColorWord ground, ColorWord wanted, ColorWord otherwise);

}  // namespace quillo
