#pragma once

#include "platform/win32.h"

namespace quillo {

/// While it lives, the controls, message boxes and dialogs of the system that this thread creates have the user's
/// visual style, and libraries that it loads find the common controls that draw it.
///
/// The manifest of the process does not name these controls: a note needs none of them, and they would cost each start
/// their library and the files of the style.
class StyledControls {
  public:
    StyledControls();
    StyledControls(const StyledControls&) = delete;
    StyledControls& operator=(const StyledControls&) = delete;
    ~StyledControls();

  private:
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

}  // namespace quillo
