#pragma once

#include <string>

#include "platform/win32.h"
#include "util/geometry.h"

// After windows.h.
#include <oleacc.h>

namespace quillo {

/// The description of a drawn control, or of one of its parts, for screen readers.
struct AccessiblePart {
    std::u16string name;
    LONG role = ROLE_SYSTEM_CLIENT;
    LONG state = 0;  ///< for the control itself, focus, visibility and the disabled state are added
    std::u16string value;
    std::u16string description;
    std::u16string action;  ///< the verb for activating it; empty if it cannot be activated
    Rect place;             ///< of a part, in pixels of the client area
};

/// A control that the program draws itself. It is numbered 0, its parts from 1.
class AccessibleSource {
  public:
    virtual ~AccessibleSource() = default;
    /// An empty name means the window's text.
    [[nodiscard]] virtual AccessiblePart Describe(int part) const = 0;
    [[nodiscard]] virtual int PartCount() const { return 0; }
    /// The part that has the focus while the control has it; 0 for the control itself.
    [[nodiscard]] virtual int FocusedPart() const { return 0; }
    /// Whether it contains other windows, which screen readers reach as in any window of the system.
    [[nodiscard]] virtual bool HoldsWindows() const { return false; }
    virtual void Activate(int /*part*/) {}
};

class AccessibleObject;

/// A member of the control that answers its WM_GETOBJECT, and disconnects the screen readers when the control ends.
class AccessibleLink {
  public:
    explicit AccessibleLink(AccessibleSource& source) : source_(source) {}
    AccessibleLink(const AccessibleLink&) = delete;
    AccessibleLink& operator=(const AccessibleLink&) = delete;
    ~AccessibleLink();

    /// The result for a WM_GETOBJECT.
    [[nodiscard]] LRESULT Answer(HWND window, WPARAM wParam, LPARAM lParam);

  private:
    void Cut();

    AccessibleSource& source_;
    AccessibleObject* object_ = nullptr;  // a reference
};

}  // namespace quillo
