#pragma once

#include "platform/win32.h"
#include "ports/canvas.h"
#include "util/units.h"

namespace quillo {

/// The system's color for a color word: resolves references to system colors.
[[nodiscard]] COLORREF ToColorRef(ColorWord color);
/// The plain RGB color that a color word means.
[[nodiscard]] ColorWord Resolve(ColorWord color);

/// Draws on a device context. Text uses the font `fontName`.
class GdiCanvas : public Canvas {
  public:
    /// `dc` is borrowed.
    GdiCanvas(HDC dc, Scale scale, const wchar_t* fontName = L"Tahoma") : dc_(dc), scale_(scale), fontName_(fontName) {}

    void Fill(const Rect& area, ColorWord color) override;
    void Box(const Rect& area, int thickness, ColorWord color) override;
    void Line(Point from, Point to, int thickness, ColorWord color) override;
    void Text(Point at, std::u16string_view text, int points, ColorWord color) override;
    void Gradient(const Rect& area, ColorWord top, ColorWord bottom) override;

  private:
    HDC dc_;
    Scale scale_;
    const wchar_t* fontName_;
};

}  // namespace quillo
