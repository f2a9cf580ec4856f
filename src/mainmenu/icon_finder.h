#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "mainmenu/shortcut_icon.h"
#include "mainmenu/slot_icons.h"
#include "platform/win32.h"

namespace quillo {

/// An answer of the finder.
struct FoundIcon {
    IconRequest request;
    ShortcutIcon icon;
};

using IconLookUp = std::function<ShortcutIcon(const IconRequest&)>;

/// Looks icons up on a thread of its own, because a file on a network that is gone keeps the shell waiting for a
/// minute. It is the only other thread of the program. Nothing waits for it: at the end it is left to finish by itself,
/// or to go with the process.
class IconFinder {
  public:
    /// `lookUp` is called on the other thread; the shell is asked when it is empty.
    explicit IconFinder(IconLookUp lookUp = {});
    IconFinder(const IconFinder&) = delete;
    IconFinder& operator=(const IconFinder&) = delete;
    ~IconFinder();

    /// Looks for the icons one after the other. Each time one is found, `message` is posted to the window. The thread
    /// lasts as long as there is something to look for.
    void Ask(HWND window, UINT message, std::vector<IconRequest> requests);
    /// What has been found since the last call.
    [[nodiscard]] std::vector<FoundIcon> Take();

  private:
    struct Shared;  // with the thread; whichever of the two ends last frees it

    [[nodiscard]] bool Start() const;
    static unsigned __stdcall Run(void* shared);
    [[nodiscard]] static bool Next(Shared& state, IconRequest& request);

    std::shared_ptr<Shared> shared_;
};

}  // namespace quillo
