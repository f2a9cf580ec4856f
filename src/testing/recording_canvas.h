#pragma once

#include <string>
#include <vector>

#include "ports/canvas.h"

namespace quillo {

/// Records what was drawn, in order.
class RecordingCanvas : public Canvas {
  public:
    struct Call {
        enum class Kind { Fill, Box, Line, Text, Gradient } kind = Kind::Fill;
        Rect area;  ///< of a fill, a box or a gradient
        Point from;
        Point to;      ///< of a line; a text uses only `from`
        int size = 0;  ///< thickness, or points
        std::u16string text;
        ColorWord color;
        ColorWord second;  ///< a gradient's lower color
        friend bool operator==(const Call&, const Call&) = default;
    };

    void Fill(const Rect& area, ColorWord color) override;
    void Box(const Rect& area, int thickness, ColorWord color) override;
    void Line(Point from, Point to, int thickness, ColorWord color) override;
    void Text(Point at, std::u16string_view text, int points, ColorWord color) override;
    void Gradient(const Rect& area, ColorWord top, ColorWord bottom) override;

    [[nodiscard]] const std::vector<Call>& Calls() const { return calls_; }

  private:
    std::vector<Call> calls_;
};

}  // namespace quillo
