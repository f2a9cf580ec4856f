#pragma once

#include <string>
#include <string_view>

#include "controls/divider_geometry.h"
#include "platform/accessible.h"
#include "platform/drawn_window.h"

namespace quillo {

/// An etched line between groups of a page, with or without a caption. Its font is set with WM_SETFONT, as for every
/// control.
class TesselDivider : public DrawnWindow, private AccessibleSource {
  public:
    /// False on failure.
    bool Create(HWND parent, int id, std::u16string_view caption = {}, const Rect& place = {});

    [[nodiscard]] std::u16string Caption() const;
    /// For forms whose captions change; those of the options dialog do not.
    void SetCaption(std::u16string_view caption);
    /// Sets the resolution of the form that contains it.
    void SetScale(const Scale& scale);

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
    void OnSetFont(HFONT font);
    void OnPaint() override;
    void PaintGround(HDC dc, const RECT& area) const;
    [[nodiscard]] AccessiblePart Describe(int part) const override;

    Scale scale_;
    HFONT font_ = nullptr;  // borrowed from the form
    AccessibleLink accessible_{*this};
};

}  // namespace quillo
