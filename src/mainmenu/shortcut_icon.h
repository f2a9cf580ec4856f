#pragma once

#include <string>

#include "platform/unique_handle.h"
#include "util/geometry.h"

// After windows.h.
#include <commctrl.h>

namespace quillo {

/// The shell's icon of a file, `size` pixels square; the icon of its kind when the file is not there.
class ShortcutIcon {
  public:
    ShortcutIcon(const std::u16string& file, int size);

    void Draw(HDC dc, Point at) const;

  private:
    int index_ = 0;              // before the list, with which it is found
    HIMAGELIST list_ = nullptr;  ///< the system's own
    int size_;
    IconHandle resized_;  ///< where the system's list has another size
};

}  // namespace quillo
