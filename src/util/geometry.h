#pragma once

namespace quillo {

/// A point in device pixels.
struct Point {
    int x = 0;
    int y = 0;
    friend constexpr bool operator==(Point, Point) = default;
};

/// An extent in device pixels.
struct Size {
    int width = 0;
    int height = 0;
    friend constexpr bool operator==(Size, Size) = default;
};

/// A rectangle in device pixels; Right() and Bottom() are one past its last pixel.
struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] constexpr int Right() const { return left + width; }
    [[nodiscard]] constexpr int Bottom() const { return top + height; }
    [[nodiscard]] constexpr bool Contains(Point p) const {
        return p.x >= left && p.x < Right() && p.y >= top && p.y < Bottom();
    }
    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

/// A rectangle in twips, as a note file holds it (single precision).
struct TwipsRect {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    friend constexpr bool operator==(const TwipsRect&, const TwipsRect&) = default;
};

}  // namespace quillo
