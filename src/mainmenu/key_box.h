#pragma once

#include <functional>

#include "platform/win32.h"

namespace quillo {

/// A text box in which a key is chosen by pressing it. It ignores typed text, reports every key pressed in it, and
/// shows the text that it is given.
class KeyBox {
  public:
    KeyBox() = default;
    KeyBox(const KeyBox&) = delete;
    KeyBox& operator=(const KeyBox&) = delete;

    /// Creates the control with an empty size; null on failure. This object must outlive it.
    HWND Create(HWND parent, int id);

    /// A virtual key was pressed.
    std::function<void(int)> onKey;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR object) noexcept;
};

}  // namespace quillo
