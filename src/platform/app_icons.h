#pragma once

#include <list>

#include "platform/unique_handle.h"
#include "util/units.h"

namespace quillo {

/// Loads the icon of a resource from its picture of that size. Never a shared handle: the system returns a shared icon
/// in the size that was requested first.
[[nodiscard]] IconHandle LoadIconOfSize(int resource, int edge);
/// The edges of the system's small and large icons at a resolution.
[[nodiscard]] int SmallIconEdge(const Scale& scale);
[[nodiscard]] int LargeIconEdge(const Scale& scale);
/// The resolution of the monitor with the task bar.
[[nodiscard]] Scale TaskBarScale();

/// The program's icon for the notification area, loaded again when the task bar's resolution has changed.
class TrayPicture {
  public:
    /// Borrowed, and valid until the next call after HasChanged has returned true.
    [[nodiscard]] HICON Handle();
    /// Whether the next picture differs.
    [[nodiscard]] bool HasChanged() const;

  private:
    IconHandle icon_;
    int edge_ = 0;
};

/// The program's icon in each size that was asked for, for windows that answer WM_GETICON themselves: many notes then
/// have one handle for each size, and the size is that of the moment.
class SharedIcons {
  public:
    /// The answer to a WM_GETICON of a window at that resolution. Borrowed, and valid as long as this object.
    [[nodiscard]] HICON Answer(WPARAM kind, const Scale& scale);

  private:
    struct Entry {
        int edge;
        IconHandle icon;
    };
    std::list<Entry> icons_;
};

/// The two icons of a window, for its caption, the task bar and the list of Alt+Tab.
class WindowIcons {
  public:
    /// Sets the window's icons for its resolution, and destroys its earlier ones.
    void GiveTo(HWND window, const Scale& scale);

  private:
    IconHandle small_;
    IconHandle large_;
};

}  // namespace quillo
