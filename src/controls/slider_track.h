#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "controls/system_colors.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

class Canvas;

/// What a slider is given by the form that it stands on; the defaults are those of a freshly placed one.
struct SliderProperties {
    std::int32_t value = 0;
    std::int32_t min = 0;
    std::int32_t max = 100;
    ColorWord foreColor = kSystemHighlight;  ///< of the part up to the value
    ColorWord backColor = kSystemWindow;     ///< of the rest
    bool enabled = true;
};

/// Where a key moves the value.
enum class SliderKey { Less, More, PageLess, PageMore, ToMin, ToMax };

/// The level bar's behavior and picture, free of any window. Coordinates are pixels inside the control.
class SliderTrack {
  public:
    [[nodiscard]] std::int32_t Value() const { return properties_.value; }
    [[nodiscard]] std::int32_t Min() const { return properties_.min; }
    [[nodiscard]] std::int32_t Max() const { return properties_.max; }
    [[nodiscard]] ColorWord ForeColor() const { return properties_.foreColor; }
    [[nodiscard]] ColorWord BackColor() const { return properties_.backColor; }
    [[nodiscard]] bool Enabled() const { return properties_.enabled; }
    /// Pixels per unit; 0 when the control is too narrow or the range is empty.
    [[nodiscard]] double PixelsPerUnit() const;

    /// Takes everything over at once, brought into its bounds; no event.
    void Apply(const SliderProperties& properties);
    /// Keeps the value in its bounds and raises onChange, also when it is the old one.
    void SetValue(std::int32_t value);
    /// The other two follow when they have to; no event.
    void SetMin(std::int32_t min);
    void SetMax(std::int32_t max);
    void SetForeColor(ColorWord color);
    void SetBackColor(ColorWord color);
    void SetEnabled(bool enabled);
    void Resize(Size size, const Scale& scale);

    /// A press at `x`, or a move to it while any button is held.
    void MouseAt(int x);
    void Press(SliderKey key);

    /// With a ring inside the outline while the slider has the keyboard.
    void Paint(Canvas& canvas, bool focused = false) const;

    /// A new value was picked. intended: Value() is still the old one in the handlers of a pick, so that a handler can
    /// tell from where to where the user went; the new one is the argument. A handler may end the slider.
    std::function<void(std::int32_t)> onClick;
    /// Right after onClick, and after each SetValue.
    std::function<void(std::int32_t)> onChange;
    std::function<void()> onRepaint;

  private:
    [[nodiscard]] std::int32_t ValueAt(int x) const;
    void Pick(std::int32_t value);
    void Repaint() const;

    SliderProperties properties_;
    Size size_;
    Scale scale_;
    std::shared_ptr<char> life_ = std::make_shared<char>();  // gone with the slider
};

}  // namespace quillo
