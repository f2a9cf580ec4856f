#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/drop_target.h"
#include "util/geometry.h"

namespace quillo {

/// Takes files dragged onto the main menu. The menu holds one reference.
class MenuDropTarget : public DropTarget {
  public:
    /// Both get a point of the screen. `accepts` tells whether so many files may be dropped there, `drop` takes them
    /// and tells whether it did.
    MenuDropTarget(std::function<bool(Point, int)> accepts,
                   std::function<bool(Point, const std::vector<std::u16string>&)> drop)
        : accepts_(std::move(accepts)), drop_(std::move(drop)) {}

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragLeave() override;
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;

    /// The menu is going: nothing is taken any more.
    void Disconnect();

  private:
    ~MenuDropTarget() override = default;

    std::function<bool(Point, int)> accepts_;
    std::function<bool(Point, const std::vector<std::u16string>&)> drop_;
    int files_ = 0;  ///< how many are dragged
};

}  // namespace quillo
