#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/note_button_images.h"
#include "platform/accessible.h"
#include "platform/drawn_window.h"

namespace quillo {

/// The sign in a note's strip that says that the note is not saved, and why. The strip can still be dragged there.
class SaveSign : public DrawnWindow, private AccessibleSource {
  public:
    explicit SaveSign(NoteButtonImages& images) : images_(images) {}
    ~SaveSign() override { Destroy(); }

    /// Shows the sign with its reason, which a screen reader speaks; an empty reason removes the sign. False if the
    /// window could not be created.
    bool Show(HWND note, int id, std::u16string_view reason, const Rect& place);
    [[nodiscard]] const std::u16string& Reason() const { return reason_; }
    /// The colors of the bar behind the sign and of its glyph.
    void SetTint(const ButtonTint& tint, const Scale& scale);

    /// Gets each message of the mouse, with its place, before the sign reacts.
    std::function<void(UINT message, LPARAM at)> onMouse;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    [[nodiscard]] bool Make(HWND note, int id, const Rect& place);
    void OnPaint() override;
    void OnPressed(Point at) const;
    [[nodiscard]] AccessiblePart Describe(int part) const override;

    NoteButtonImages& images_;
    std::u16string reason_;
    ButtonTint tint_;
    Scale scale_;
    AccessibleLink accessible_{*this};
};

}  // namespace quillo
