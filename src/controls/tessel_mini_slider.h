#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "controls/slider_track.h"
#include "platform/accessible.h"
#include "platform/drawn_window.h"
#include "util/lifetime.h"

namespace quillo {

/// A flat level bar. The user sets its value by pressing, by dragging, or with the arrow keys, Page Up and Down, Home
/// and End.
class TesselMiniSlider : public DrawnWindow, private AccessibleSource {
  public:
    TesselMiniSlider();

    /// Screen readers speak `name`. False on failure.
    bool Create(HWND parent, int id, const wchar_t* name, const SliderProperties& properties = {},
                const Rect& place = {});

    [[nodiscard]] std::int32_t Value() const { return track_.Value(); }
    /// Clamps the value and raises onChange, even if the value is the old one.
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
    /// A disabled slider ignores the keyboard and the mouse.
    void SetEnabled(bool enabled);
    /// Sets the resolution of the form that contains it.
    void SetScale(const Scale& scale);
    /// Shows a message box that says what the control is, and pumps messages. It is for those who place the control on
    /// a form; the options dialog does not call it.
    void AboutBox() const;

    // Raised when the user picks a value, in this order; Value() is still the old one then, and the argument is the new
    // one. Each SetValue raises onChange too. A handler may end the slider.
    std::function<void(std::int32_t)> onClick;
    std::function<void(std::int32_t)> onChange;
    /// The text that a screen reader speaks for a value; without it the number itself.
    std::function<std::u16string(std::int32_t)> describeValue;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void OnPress(Point at);
    void OnMouseMove(Point at, WPARAM keys);
    void OnRelease(WPARAM keys);
    void OnKey(WPARAM key);
    void OnPaint() override;
    void OnTrackChanged();
    [[nodiscard]] AccessiblePart Describe(int part) const override;

    SliderTrack track_;
    Scale scale_;
    std::int32_t announced_ = 0;  // the value last announced to screen readers
    AccessibleLink accessible_{*this};
    Lifetime lifetime_;
};

}  // namespace quillo
