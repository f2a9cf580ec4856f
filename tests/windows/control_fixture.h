#pragma once

#include <gtest/gtest.h>

#include "platform/unique_handle.h"
#include "platform/window.h"
#include "support.h"

namespace quillo::windows_tests {

/// A visible window on an even ground for one control to stand on.
class ControlParent : public Window {
  public:
    static constexpr COLORREF kGround = RGB(251, 249, 241);

    ControlParent();
    [[nodiscard]] HWND Of() const { return Handle(); }

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    BrushHandle ground_{CreateSolidBrush(kGround)};
};

/// A window procedure gets the message as the system would send it, while the pointer really stands there.
void SendMouse(HWND window, UINT message, WPARAM keys, Point at);
/// The color that the window paints at a point, now.
[[nodiscard]] COLORREF PaintedAt(HWND window, Point at);

}  // namespace quillo::windows_tests
