#pragma once

#include "platform/win32.h"
#include "util/geometry.h"

namespace quillo {

/// What CreateWindow needs besides the class.
struct WindowPlan {
    const wchar_t* title = L"";
    DWORD style = 0;
    DWORD exStyle = 0;
    Rect place;  ///< device pixels; screen coordinates for a top-level window
    HWND parent = nullptr;
    int childId = 0;
};

/// A window of our own: bound to its object from WM_NCCREATE to WM_NCDESTROY. The C++ owner owns the object, and
/// destroying it destroys the window; the window never deletes the object.
class Window {
  public:
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    /// Ends the window unheard: a class that has something to do at its window's end calls Destroy in its own
    /// destructor, while its handlers still exist.
    virtual ~Window();

    /// Null before Create and after the window has gone.
    [[nodiscard]] HWND Handle() const { return handle_; }

  protected:
    Window() = default;

    /// Whether a mark for the keyboard's focus is to be drawn: it has the focus, and Windows shows keyboard cues.
    [[nodiscard]] bool ShowsFocus() const;
    /// A key was pressed in a control whose keys are its own: Windows shows keyboard cues from now on.
    void ShowKeyboardCues() const;

    /// Registers the class on first use (its procedure is filled in here) and makes the window. False on failure.
    bool Create(WNDCLASSEXW windowClass, const WindowPlan& plan);
    void Destroy();

    /// One line per message to a named handler; what is left goes to Default. An exception that leaves it is caught
    /// at the boundary to the system, which could not unwind it.
    virtual LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

    [[nodiscard]] Rect ClientRect() const;
    /// Everything in the window is painted anew.
    void Invalidate() const;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND handle_ = nullptr;
};

/// The system's arrow; the named constant is narrow text while UNICODE is off.
[[nodiscard]] HCURSOR ArrowCursor();

/// The module that holds the program's classes and resources.
[[nodiscard]] HINSTANCE ThisModule();

[[nodiscard]] inline Point PointFromLParam(LPARAM lParam) {
    return Point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace quillo
