#pragma once

#include <gtest/gtest.h>

#include "platform/unique_handle.h"
#include "platform/window.h"
#include "support.h"

namespace quillo::windows_tests {

/// A visible window with a uniform background that contains one control.
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

/// Sends a mouse message as the system would, with the real pointer at that point.
void SendMouse(HWND window, UINT message, WPARAM keys, Point at);
/// The color that the window currently paints at a point.
[[nodiscard]] COLORREF PaintedAt(HWND window, Point at);

}  // namespace quillo::windows_tests
