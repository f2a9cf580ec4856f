#pragma once

#include <cmath>

namespace quillo {

/// Twips in an inch; note files hold rectangles in twips.
inline constexpr int kTwipsPerInch = 1440;
/// The resolution at which the design's pixel figures apply unchanged.
inline constexpr int kDesignDpi = 96;

/// A length on the screen in device pixels.
struct Pixels {
    int value = 0;
    friend constexpr bool operator==(Pixels, Pixels) = default;
};

/// A length in 1/1440 inch. Whole on the screen, a single-precision number in a note file.
struct Twips {
    float value = 0;
    friend constexpr bool operator==(Twips, Twips) = default;
};

/// Turns design pixels (at 96 dpi) and twips into device pixels and back, for one resolution. Lengths of different
/// units are different types, so that they cannot be added by mistake.
class Scale {
  public:
    constexpr Scale() = default;
    /// `dpi` below 1 counts as 96.
    explicit constexpr Scale(int dpi) : dpi_(dpi < 1 ? kDesignDpi : dpi) {}

    [[nodiscard]] constexpr int Dpi() const { return dpi_; }

    /// A figure of the design in device pixels, rounded to the nearest; at 96 dpi the figure itself.
    [[nodiscard]] constexpr int Px(int atDesignDpi) const {
        const int scaled = atDesignDpi * dpi_;
        return (scaled + (scaled >= 0 ? kDesignDpi / 2 : -kDesignDpi / 2)) / kDesignDpi;
    }
    [[nodiscard]] Pixels ToPixels(Twips twips) const {
        const double pixels = std::nearbyint(static_cast<double>(twips.value) * dpi_ / kTwipsPerInch);
        constexpr double kLimit = 1'000'000;  // far beyond any desktop; keeps the conversion defined
        if (!(pixels > -kLimit)) return Pixels{static_cast<int>(-kLimit)};
        return Pixels{static_cast<int>(pixels < kLimit ? pixels : kLimit)};
    }
    /// Rounded to whole twips: a fraction would be written with the locale's decimal separator, which in many locales
    /// is the comma that separates the numbers of a note's position.
    [[nodiscard]] Twips ToTwips(Pixels pixels) const {
        return Twips{static_cast<float>(std::nearbyint(static_cast<double>(pixels.value) * kTwipsPerInch / dpi_))};
    }

  private:
    int dpi_ = kDesignDpi;
};

}  // namespace quillo
