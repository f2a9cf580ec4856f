#pragma once

#include <memory>

#include "platform/drop_target.h"

namespace quillo {

/// A drop target's reference of its maker.
struct ReleaseDropTarget {
    void operator()(DropTarget* target) const { target->Release(); }
};
using DropTargetPtr = std::unique_ptr<DropTarget, ReleaseDropTarget>;

/// A window that takes drops for as long as this lives and is not released.
class DropRegistration {
  public:
    DropRegistration() = default;
    DropRegistration(const DropRegistration&) = delete;
    DropRegistration& operator=(const DropRegistration&) = delete;
    ~DropRegistration() { Release(); }

    /// Takes drops on the target's window. False when OLE refuses: `target` is given up, and another try may succeed.
    [[nodiscard]] bool Register(OleSession& ole, DropTargetPtr target);
    /// No drop comes any more; while the window still exists.
    void Release();
    [[nodiscard]] bool IsRegistered() const { return target_ != nullptr; }

  private:
    DropTargetPtr target_;
};

}  // namespace quillo
