#pragma once

#include <functional>

#include "controls/swatch_palette.h"
#include "controls/swatch_strip.h"
#include "platform/accessible.h"
#include "platform/drawn_window.h"
#include "util/lifetime.h"

namespace quillo {

/// A strip of color schemes from which one is picked with the mouse, or with the arrow keys and Space or Enter. It
/// always has the size of its strip, and does not store the picked scheme: its owner does.
class NoteColorSelector : public DrawnWindow, private AccessibleSource {
  public:
    /// Screen readers speak `name`. False on failure.
    bool Create(HWND parent, int id, const wchar_t* name, Point at = {});

    // The next two are for other forms with this control; the program's forms begin with colors of their own.

    /// Reports the first scheme, as if it had been picked.
    void SetDefault() const { Pick(0); }
    /// One of the pale schemes, for a new note; raises no event.
    [[nodiscard]] static const ColorScheme& GetRandomColors(Random& random) { return RandomScheme(random); }
    /// Moves the keyboard mark to the first swatch.
    void ResetChoice() { MoveMark(0); }
    /// Sets the resolution of the form that contains it; the control then takes the size of its strip.
    void SetScale(const Scale& scale);
    [[nodiscard]] Size StripSize() const { return strip_.StripSize(); }

    /// A scheme was picked. A handler may end the selector.
    std::function<void(const ColorScheme&)> onColorPicked;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void OnSizing(WINDOWPOS& place) const;
    void OnPress();
    void OnRelease(Point at, WPARAM keys);
    void OnKey(WPARAM key, bool repeated);
    void OnFocusChanged(bool focused);
    void OnPaint() override;
    void MoveMark(std::size_t index);
    void Pick(std::size_t index) const;

    // AccessibleSource; the parts are the swatches.
    [[nodiscard]] AccessiblePart Describe(int part) const override;
    [[nodiscard]] int PartCount() const override { return static_cast<int>(kSwatches.size()); }
    [[nodiscard]] int FocusedPart() const override { return PartOf(strip_.Mark()); }
    void Activate(int part) override;
    [[nodiscard]] static int PartOf(std::size_t swatch) { return static_cast<int>(swatch) + 1; }

    SwatchStrip strip_;
    bool byMouse_ = false;  ///< used by mouse since it got the focus: no swatch is marked until a key is pressed
    Scale scale_;
    AccessibleLink accessible_{*this};
    Lifetime lifetime_;
};

}  // namespace quillo
