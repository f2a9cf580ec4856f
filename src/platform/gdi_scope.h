#pragma once

#include "platform/dib.h"
#include "platform/unique_handle.h"
#include "util/geometry.h"

namespace quillo {

/// BeginPaint for a scope.
class PaintScope {
  public:
    explicit PaintScope(HWND window) : window_(window), dc_(BeginPaint(window, &paint_)) {}
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;
    ~PaintScope() { EndPaint(window_, &paint_); }

    [[nodiscard]] HDC Dc() const { return dc_; }
    [[nodiscard]] const RECT& Area() const { return paint_.rcPaint; }

  private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC dc_;
};

/// An object selected into a device context for a scope.
class SelectScope {
  public:
    SelectScope(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    SelectScope(const SelectScope&) = delete;
    SelectScope& operator=(const SelectScope&) = delete;
    ~SelectScope() { SelectObject(dc_, previous_); }

  private:
    HDC dc_;
    HGDIOBJ previous_;
};

/// A window's device context for a scope; a null window is the screen.
class WindowDcScope {
  public:
    explicit WindowDcScope(HWND window) : window_(window), dc_(GetDC(window)) {}
    WindowDcScope(const WindowDcScope&) = delete;
    WindowDcScope& operator=(const WindowDcScope&) = delete;
    ~WindowDcScope() { ReleaseDC(window_, dc_); }

    [[nodiscard]] HDC Dc() const { return dc_; }

  private:
    HWND window_;
    HDC dc_;
};

/// Directs drawing to an off-screen bitmap, which is copied in one step at the end of the scope, so that nothing
/// flickers. Coordinates are those of the target. The bitmap has a format of its own: the system need not be asked for
/// that of the screen.
class BufferedPaint {
  public:
    BufferedPaint(HDC target, const RECT& area)
        : target_(target),
          area_(area),
          dc_(CreateCompatibleDC(target)),
          bitmap_(MakeDib(Size{area.right - area.left, area.bottom - area.top})),
          previous_(SelectObject(dc_.Get(), bitmap_.Get())) {
        SetViewportOrgEx(dc_.Get(), -area.left, -area.top, nullptr);
    }
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;
    ~BufferedPaint() {
        BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top, dc_.Get(),
               area_.left, area_.top, SRCCOPY);
        SelectObject(dc_.Get(), previous_);
    }

    [[nodiscard]] HDC Dc() const { return dc_.Get(); }

  private:
    HDC target_;
    RECT area_;
    MemoryDc dc_;
    BitmapHandle bitmap_;
    HGDIOBJ previous_;
};

[[nodiscard]] inline RECT ToWin32(const Rect& r) {
    return RECT{r.left, r.top, r.Right(), r.Bottom()};
}
[[nodiscard]] inline Rect FromWin32(const RECT& r) {
    return Rect{r.left, r.top, r.right - r.left, r.bottom - r.top};
}

}  // namespace quillo
