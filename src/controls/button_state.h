#pragma once

#include "util/geometry.h"

namespace quillo {

/// The face of a note button; the number is the column of its frame in the image strip.
enum class ButtonFace : int { Normal = 0, Hot = 1, Pressed = 2 };

/// How strongly the glyphs of an inactive note are drawn, in percent of an active one's; the contrast is still 3 to 1.
inline constexpr int kFaintGlyphPercent = 82;

/// The mouse button that an event concerns or that is held.
enum class MouseButton { None, Left, Other };

/// What the owner of the state has to do after an event, in this order.
struct ButtonResponse {
    bool repaint = false;
    enum class Capture { Keep, Take, Release } capture = Capture::Keep;
    enum class Event { None, Click, ShiftClick, MouseDown } event = Event::None;
};

/// The flat button's behavior, independent of any window. Coordinates are pixels inside the button.
class ButtonState {
  public:
    void Resize(Size size) { size_ = size; }
    void SetMenuMode(bool menuMode) { menuMode_ = menuMode; }
    [[nodiscard]] bool MenuMode() const { return menuMode_; }
    [[nodiscard]] ButtonFace Face() const { return face_; }
    /// True while a mouse button that was pressed here is held.
    [[nodiscard]] bool IsPressed() const { return pressed_; }
    [[nodiscard]] bool HasCapture() const { return captured_; }

    [[nodiscard]] ButtonResponse MouseMove(Point at, MouseButton held);
    [[nodiscard]] ButtonResponse MouseDown(Point at, MouseButton pressed);
    [[nodiscard]] ButtonResponse MouseUp(Point at, MouseButton released, bool shift);
    /// Another window has taken the capture: the button returns to rest.
    [[nodiscard]] ButtonResponse CaptureLost();

  private:
    [[nodiscard]] bool Inside(Point at) const;

    Size size_;
    ButtonFace face_ = ButtonFace::Normal;
    bool captured_ = false;
    bool pressed_ = false;
    bool menuMode_ = false;
};

}  // namespace quillo
