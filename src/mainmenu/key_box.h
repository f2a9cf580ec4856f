#pragma once

#include <functional>

#include "platform/win32.h"

namespace quillo {

/// A text box in which a key is chosen by pressing it: it never takes what is typed, but reports every key that goes
/// down in it and shows what it is told to.
class KeyBox {
  public:
    KeyBox() = default;
    KeyBox(const KeyBox&) = delete;
    KeyBox& operator=(const KeyBox&) = delete;

    /// A control of no size yet; null on failure. This object must outlive it.
    HWND Create(HWND parent, int id);

    /// A virtual key has gone down.
    std::function<void(int)> onKey;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR object) noexcept;
};

}  // namespace quillo
