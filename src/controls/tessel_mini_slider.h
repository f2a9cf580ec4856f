#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "controls/slider_track.h"
#include "platform/accessible.h"
#include "platform/window.h"

namespace quillo {

/// A flat level bar whose value the user sets by pressing, by dragging, or with the arrow keys, Page Up and Down, Home
/// and End.
class TesselMiniSlider : public Window, private AccessibleSource {
  public:
    TesselMiniSlider();

    /// `name` is what a screen reader speaks. False on failure.
    bool Create(HWND parent, int id, const wchar_t* name, const SliderProperties& properties = {},
                const Rect& place = {});

    [[nodiscard]] std::int32_t Value() const { return track_.Value(); }
    /// Keeps the value in its bounds and raises onChange, also when it is the old one.
    void SetValue(std::int32_t value) { track_.SetValue(value); }
    [[nodiscard]] std::int32_t Min() const { return track_.Min(); }
    void SetMin(std::int32_t min) { track_.SetMin(min); }
    [[nodiscard]] std::int32_t Max() const { return track_.Max(); }
    void SetMax(std::int32_t max) { track_.SetMax(max); }
    [[nodiscard]] ColorWord ForeColor() const { return track_.ForeColor(); }
    void SetForeColor(ColorWord color) { track_.SetForeColor(color); }
    [[nodiscard]] ColorWord BackColor() const { return track_.BackColor(); }
    void SetBackColor(ColorWord color) { track_.SetBackColor(color); }
    [[nodiscard]] bool Enabled() const { return track_.Enabled(); }
    /// A disabled slider passes the keyboard and the mouse over.
    void SetEnabled(bool enabled);
    /// The resolution of the form that it stands on.
    void SetScale(const Scale& scale);
    /// A message box that says what the control is; lets messages run.
    void AboutBox() const;

    // Raised when the user picks a value, in this order; Value() is still the old one then, the new one is the
    // argument. onChange also follows each SetValue. A handler may end the slider.
    std::function<void(std::int32_t)> onClick;
    std::function<void(std::int32_t)> onChange;
    /// What a screen reader speaks for a value; without it the number itself.
    std::function<std::u16string(std::int32_t)> describeValue;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void OnPress(Point at);
    void OnMouseMove(Point at, WPARAM keys);
    void OnRelease(WPARAM keys);
    void OnKey(WPARAM key);
    void OnPaint();
    void OnTrackChanged();
    [[nodiscard]] AccessiblePart Describe(int part) const override;

    SliderTrack track_;
    Scale scale_;
    std::int32_t announced_ = 0;  // the value that screen readers were told of
    AccessibleLink accessible_{*this};
};

}  // namespace quillo
