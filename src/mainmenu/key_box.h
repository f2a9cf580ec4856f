#pragma once

#include <functional>

#include "platform/subclass.h"

namespace quillo {

/// A text box in which a key is chosen by pressing it. It ignores typed text, reports every key pressed in it, and
/// shows the text that it is given.
class KeyBox : private SubclassedControl {
  public:
    /// Creates the control with an empty size; null on failure.
    HWND Create(HWND parent, int id);

    /// A virtual key was pressed.
    std::function<void(int)> onKey;

  private:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

}  // namespace quillo
