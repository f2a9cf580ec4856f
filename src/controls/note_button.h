#pragma once

#include <functional>

#include "controls/button_state.h"
#include "controls/note_button_images.h"
#include "platform/accessible.h"
#include "platform/drawn_window.h"
#include "util/lifetime.h"

namespace quillo {

/// A small flat picture button of a note.
class NoteButton : public DrawnWindow, private AccessibleSource {
  public:
    explicit NoteButton(NoteButtonImages& images) : images_(images) {}

    /// Screen readers speak `name`. False on failure.
    bool Create(HWND parent, int id, const wchar_t* name, const Rect& place = {});

    [[nodiscard]] ButtonPicture Picture() const { return picture_; }
    void SetPicture(ButtonPicture picture);
    [[nodiscard]] bool Enabled() const { return enabled_; }
    /// A disabled button does not react and shows its normal face.
    void SetEnabled(bool enabled);
    /// Shows the pressed face regardless of the mouse: while the menu that it opened is shown.
    void HoldDown(bool down);
    [[nodiscard]] bool MenuMode() const { return state_.MenuMode(); }
    void SetMenuMode(bool menuMode) { state_.SetMenuMode(menuMode); }
    /// Releases the capture that a button holds while the pointer hovers over it; a press continues.
    static void EndHover();
    /// Draws the button at rest on its note. Before the button has a window, this picture takes its place.
    void PaintAtRest(HDC dc, const Rect& place);
    /// The colors of the bar behind the button and of its glyph.
    void SetTint(const ButtonTint& tint, const Scale& scale);

    // A handler may end the button.
    std::function<void()> onClick;
    std::function<void()> onShiftClick;
    std::function<void()> onMouseDown;
    /// Gets each message of the mouse, with its place, before the button reacts. It must not end the button.
    std::function<void(UINT message, LPARAM at)> onMouse;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void OnMouseMove(Point at, WPARAM keys);
    void OnMouseLeave();
    void OnMouseDown(Point at, MouseButton button);
    void OnMouseUp(Point at, MouseButton button, WPARAM keys);
    void OnCaptureChanged(HWND receiver);
    void OnPaint() override;
    void PaintFace(HDC dc, const Rect& place, ButtonFace face);
    void Answer(const ButtonResponse& response);
    /// A click without the mouse (BM_CLICK, as for the system's buttons).
    void OnClickMessage();
    [[nodiscard]] AccessiblePart Describe(int part) const override;
    void Activate(int part) override;

    NoteButtonImages& images_;
    ButtonState state_;
    ButtonPicture picture_ = ButtonPicture::Close;
    ButtonTint tint_;
    Scale scale_;
    bool enabled_ = true;
    bool heldDown_ = false;
    AccessibleLink accessible_{*this};
    Lifetime lifetime_;
};

}  // namespace quillo
