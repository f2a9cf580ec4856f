#pragma once

#include "platform/win32.h"

namespace quillo {

/// A control of the system whose messages are handled here first: bound to its object from Subclass to WM_NCDESTROY, or
/// to the end of the object, after which the control handles them itself. It costs the control its user data and
/// nothing else; the control must not be subclassed by anyone else.
class SubclassedControl {
  public:
    SubclassedControl(const SubclassedControl&) = delete;
    SubclassedControl& operator=(const SubclassedControl&) = delete;
    virtual ~SubclassedControl();

    /// Null before Subclass and after the control has been destroyed.
    [[nodiscard]] HWND Handle() const { return handle_; }

  protected:
    SubclassedControl() = default;

    /// `control` belongs to this thread and has just been created.
    void Subclass(HWND control);
    /// Passes what it does not handle to Default. A message whose handler throws is dropped, because the system could
    /// not unwind the exception.
    virtual LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    static LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND handle_ = nullptr;
    WNDPROC procedure_ = nullptr;  ///< the control's own
};

}  // namespace quillo
