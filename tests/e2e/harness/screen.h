#pragma once

#include <vector>

#include "platform/win32.h"

namespace quillo::e2e {

/// The pixel of the screen at that point, as 0x00BBGGRR.
[[nodiscard]] COLORREF ScreenPixel(POINT at);

/// A copy of a part of the screen.
class ScreenCopy {
  public:
    explicit ScreenCopy(const RECT& area);
    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }
    /// `x` and `y` are relative to the area's top left corner.
    [[nodiscard]] COLORREF At(int x, int y) const;
    [[nodiscard]] int Count(COLORREF color) const;

  private:
    int width_;
    int height_;
    std::vector<COLORREF> pixels_;  ///< row by row
};

/// Which of the system's icons an area of the screen shows: the number of the best match in `icons` (IDI_HAND ...).
[[nodiscard]] std::size_t NearestIcon(const RECT& area, COLORREF background, const std::vector<HICON>& icons);

}  // namespace quillo::e2e
