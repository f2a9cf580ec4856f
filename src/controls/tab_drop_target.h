#pragma once

#include <functional>

#include "platform/drop_target.h"

namespace quillo {

/// Reports to a control where data is dragged over it, and accepts no drop. The control holds one reference.
class TabDropTarget : public DropTarget {
  public:
    /// `over` gets the point in the window's client area; it may end the control. `window` is borrowed.
    TabDropTarget(HWND window, std::function<void(Point)> over) : DropTarget(window), over_(std::move(over)) {}

  private:
    ~TabDropTarget() override = default;

    [[nodiscard]] DWORD OnEnter(IDataObject* data, Point at, DWORD offered) override;
    [[nodiscard]] DWORD OnOver(Point at, DWORD offered) override;
    [[nodiscard]] DWORD OnDrop(IDataObject* data, Point at, DWORD offered) override;

    std::function<void(Point)> over_;
};

}  // namespace quillo
