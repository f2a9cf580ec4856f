#pragma once

#include <string>

#include "platform/com_ptr.h"
#include "platform/unique_handle.h"
#include "util/geometry.h"

// After windows.h.
#include <commctrl.h>
#include <commoncontrols.h>

namespace quillo {

/// The shell's icon of a file, `size` pixels square; the icon of its type if the file does not exist.
class ShortcutIcon {
  public:
    ShortcutIcon(const std::u16string& file, int size);

    void Draw(HDC dc, Point at) const;

  private:
    int index_ = 0;            // declared before the list, which is found together with it
    ComPtr<IImageList> list_;  ///< the system's own
    int size_;
    IconHandle resized_;  ///< used if the system's list has another size
};

}  // namespace quillo
