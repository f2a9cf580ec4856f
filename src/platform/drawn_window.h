#pragma once

#include "platform/window.h"

namespace quillo {

/// A window whose client area is painted as a whole, so that the system does not erase it before.
class DrawnWindow : public Window {
  protected:
    /// Called for WM_PAINT.
    virtual void OnPaint() = 0;
    /// Paints; passes everything else to the system.
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);
};

}  // namespace quillo
