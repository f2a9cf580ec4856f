#pragma once

#include <string_view>

#include "platform/win32.h"

namespace quillo {

/// Stacks the controls of a dialog or of a page. All figures are device pixels.
class ControlColumn {
  public:
    /// `dc` is borrowed.
    ControlColumn(HDC dc, int left, int top, int width) : dc_(dc), left_(left), width_(width), bottom_(top) {}

    void Put(HWND control, int indent, int height, int gapAfter);
    /// A label as high as `text` needs, wrapped at the column's width.
    void PutText(HWND label, HFONT font, std::u16string_view text, int indent, int gapAfter);
    /// For what was placed without the column.
    void Skip(int height) { bottom_ += height; }

    [[nodiscard]] HDC Dc() const { return dc_; }
    [[nodiscard]] int Left() const { return left_; }
    [[nodiscard]] int Width() const { return width_; }
    /// The bottom of all controls so far, the last gap included.
    [[nodiscard]] int Bottom() const { return bottom_; }

  private:
    HDC dc_;
    int left_;
    int width_;
    int bottom_;
};

}  // namespace quillo
