#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/drop_target.h"

namespace quillo {

/// Accepts files dragged onto the main menu. The menu holds one reference.
class MenuDropTarget : public DropTarget {
  public:
    /// Both get a point of the screen. `accepts` returns whether that many files may be dropped there; `drop` takes the
    /// files and returns whether it used them. `menu` is borrowed.
    MenuDropTarget(HWND menu, std::function<bool(Point, int)> accepts,
                   std::function<bool(Point, const std::vector<std::u16string>&)> drop)
        : DropTarget(menu), accepts_(std::move(accepts)), drop_(std::move(drop)) {}

    /// Raised with true while something is dragged over the menu. False after the drop.
    std::function<void(bool)> onDragOver;

  private:
    ~MenuDropTarget() override = default;

    [[nodiscard]] DWORD OnEnter(IDataObject* data, Point at, DWORD offered) override;
    [[nodiscard]] DWORD OnOver(Point at, DWORD offered) override;
    void OnLeave() override { SetDragOver(false); }
    [[nodiscard]] DWORD OnDrop(IDataObject* data, Point at, DWORD offered) override;

    void SetDragOver(bool over);

    std::function<bool(Point, int)> accepts_;
    std::function<bool(Point, const std::vector<std::u16string>&)> drop_;
    int files_ = 0;  ///< the number of dragged files
};

}  // namespace quillo
