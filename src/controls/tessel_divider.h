#pragma once

#include <string>
#include <string_view>

#include "controls/divider_geometry.h"
#include "platform/accessible.h"
#include "platform/window.h"

namespace quillo {

/// An etched line that parts the groups of a page, with a caption or without. Its font is set as for every control, by
/// WM_SETFONT.
class TesselDivider : public Window, private AccessibleSource {
  public:
    /// False on failure.
    bool Create(HWND parent, int id, std::u16string_view caption = {}, const Rect& place = {});

    [[nodiscard]] std::u16string Caption() const;
    void SetCaption(std::u16string_view caption);
    /// The resolution of the form that it stands on.
    void SetScale(const Scale& scale);

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
    void OnSetFont(HFONT font);
    void OnPaint();
    void PaintGround(HDC dc, const RECT& area) const;
    [[nodiscard]] AccessiblePart Describe(int part) const override;

    Scale scale_;
    HFONT font_ = nullptr;  // the form's
    AccessibleLink accessible_{*this};
};

}  // namespace quillo
