#pragma once

#include <cstdint>
#include <functional>

#include "controls/system_colors.h"
#include "util/geometry.h"
#include "util/lifetime.h"
#include "util/units.h"

namespace quillo {

class Canvas;

/// The properties that a form gives its slider; the defaults are those of a newly placed one.
struct SliderProperties {
    std::int32_t value = 0;
    std::int32_t min = 0;
    std::int32_t max = 100;
    ColorWord foreColor = kSystemHighlight;  ///< of the part below the value
    ColorWord backColor = kSystemWindow;     ///< of the rest
    bool enabled = true;
};

/// Where a key moves the value.
enum class SliderKey { Less, More, PageLess, PageMore, ToMin, ToMax };

/// The level bar's behavior and picture, independent of any window. Coordinates are pixels inside the control.
class SliderTrack {
  public:
    [[nodiscard]] std::int32_t Value() const { return properties_.value; }
    [[nodiscard]] std::int32_t Min() const { return properties_.min; }
    [[nodiscard]] std::int32_t Max() const { return properties_.max; }
    [[nodiscard]] ColorWord ForeColor() const { return properties_.foreColor; }
    [[nodiscard]] ColorWord BackColor() const { return properties_.backColor; }
    [[nodiscard]] bool Enabled() const { return properties_.enabled; }
    /// Pixels per unit; 0 if the control is too narrow or the range is empty.
    [[nodiscard]] double PixelsPerUnit() const;

    /// Takes all properties at once, each clamped to its limits; no event.
    void Apply(const SliderProperties& properties);
    /// Clamps the value and raises onChange, even if the value is the old one.
    void SetValue(std::int32_t value);
    /// Adjusts the other two if necessary; no event.
    void SetMin(std::int32_t min);
    void SetMax(std::int32_t max);
    void SetForeColor(ColorWord color);
    void SetBackColor(ColorWord color);
    void SetEnabled(bool enabled);
    void Resize(Size size, const Scale& scale);

    /// A press at `x`, or a move to it while any button is held.
    void MouseAt(int x);
    void Press(SliderKey key);

    /// `focused` adds a ring inside the outline.
    void Paint(Canvas& canvas, bool focused = false) const;

    /// A new value was picked. Intended: Value() is still the old one while the handlers of a pick run, so that a
    /// handler knows both; the new one is the argument. A handler may end the slider.
    std::function<void(std::int32_t)> onClick;
    /// Raised right after onClick, and after each SetValue.
    std::function<void(std::int32_t)> onChange;
    std::function<void()> onRepaint;

  private:
    [[nodiscard]] std::int32_t ValueAt(int x) const;
    void Pick(std::int32_t value);
    void Repaint() const;

    SliderProperties properties_;
    Size size_;
    Scale scale_;
    Lifetime lifetime_;
};

}  // namespace quillo
