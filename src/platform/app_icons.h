#pragma once

#include "platform/unique_handle.h"
#include "util/units.h"

namespace quillo {

/// The icon of a resource from its own picture of that size. Never a handle that others share: the system hands out a
/// shared icon in whichever size was asked for first.
[[nodiscard]] IconHandle LoadIconOfSize(int resource, int edge);
/// The edges of the system's small and large icons at a resolution.
[[nodiscard]] int SmallIconEdge(const Scale& scale);
[[nodiscard]] int LargeIconEdge(const Scale& scale);
/// The resolution of the monitor with the task bar.
[[nodiscard]] Scale TaskBarScale();

/// The program's icon for the notification area, loaded again when the task bar's resolution has changed.
class TrayPicture {
  public:
    /// Borrowed, and valid until the next call that answers true to HasChanged.
    [[nodiscard]] HICON Handle();
    /// Whether the next picture is another one.
    [[nodiscard]] bool HasChanged() const;

  private:
    IconHandle icon_;
    int edge_ = 0;
};

/// The two icons of a window, for its caption, the task bar and the list of Alt+Tab.
class WindowIcons {
  public:
    /// Gives the window icons of its resolution, and takes back those that it had.
    void GiveTo(HWND window, const Scale& scale);

  private:
    IconHandle small_;
    IconHandle large_;
};

}  // namespace quillo
