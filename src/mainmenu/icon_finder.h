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

/// Looks icons up on a thread of its own, because a file on an unreachable network blocks the shell for up to a minute.
/// It is the program's only other thread. Nothing waits for it: when the program ends, it finishes on its own or ends
/// with the process.
class IconFinder {
  public:
    /// `lookUp` is called on the other thread; if it is empty, the shell is asked.
    explicit IconFinder(IconLookUp lookUp = {});
    IconFinder(const IconFinder&) = delete;
    IconFinder& operator=(const IconFinder&) = delete;
    ~IconFinder();

    /// Looks the icons up one after the other. For each icon found, `message` is posted to the window. The thread runs
    /// as long as there is something to look up.
    void Ask(HWND window, UINT message, std::vector<IconRequest> requests);
    /// The icons found since the last call.
    [[nodiscard]] std::vector<FoundIcon> Take();

  private:
    struct Shared;  // shared with the thread; the last owner frees it

    [[nodiscard]] bool Start() const;
    static unsigned __stdcall Run(void* shared);
    [[nodiscard]] static bool Next(Shared& state, IconRequest& request);

    std::shared_ptr<Shared> shared_;
};

}  // namespace quillo
