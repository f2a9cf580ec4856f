#pragma once

#include <memory>

#include "platform/drop_target.h"

namespace quillo {

/// Releases the reference that the creator of a drop target holds.
struct ReleaseDropTarget {
    void operator()(DropTarget* target) const { target->Release(); }
};
using DropTargetPtr = std::unique_ptr<DropTarget, ReleaseDropTarget>;

/// Registers a window for drops, as long as this lives and is not released.
class DropRegistration {
  public:
    DropRegistration() = default;
    DropRegistration(const DropRegistration&) = delete;
    DropRegistration& operator=(const DropRegistration&) = delete;
    ~DropRegistration() { Release(); }

    /// Accepts drops on the target's window. False if OLE refuses: `target` is released, and another attempt may
    /// succeed.
    [[nodiscard]] bool Register(OleSession& ole, DropTargetPtr target);
    /// Ends the drops; must be called while the window still exists.
    void Release();
    [[nodiscard]] bool IsRegistered() const { return target_ != nullptr; }

  private:
    DropTargetPtr target_;
};

}  // namespace quillo
