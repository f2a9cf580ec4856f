#pragma once

#include "platform/win32.h"
#include "util/geometry.h"

namespace quillo {

/// How to create a window, and its class, which is registered with its first window.
struct WindowPlan {
    const wchar_t* className = nullptr;  ///< not used with a WindowClass, which has the name
    HCURSOR cursor = nullptr;            ///< of the class; null for the arrow
    int extraBytes = 0;                  ///< of each window, for the system's dialog procedure
    const wchar_t* title = L"";
    DWORD style = 0;
    DWORD exStyle = 0;
    Rect place;  ///< device pixels; screen coordinates for a top-level window
    HWND parent = nullptr;
    int childId = 0;
};

/// A window class that is registered once, together with its first window.
class WindowClass {
  public:
    /// `style` returns the style of the class. It is called at most once.
    WindowClass(const wchar_t* name, UINT (*style)()) : name_(name), style_(style) {}

  private:
    friend class Window;

    const wchar_t* name_;
    UINT (*style_)();
    bool registered_ = false;
};

/// A window of our own: bound to its object from WM_NCCREATE to WM_NCDESTROY. The C++ owner owns the object, and
/// destroying it destroys the window; the window never deletes the object.
class Window {
  public:
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    /// Destroys the window without calling its handlers: a class with work to do at its window's end calls Destroy in
    /// its own destructor, while its handlers still exist.
    virtual ~Window();

    /// Null before Create and after the window has been destroyed.
    [[nodiscard]] HWND Handle() const { return handle_; }

  protected:
    Window() = default;

    /// Whether to draw a focus mark: the window has the focus, and Windows shows keyboard cues.
    [[nodiscard]] bool ShowsFocus() const;
    /// Called when a key was pressed in a control that handles its own keys: Windows shows keyboard cues from now on.
    void ShowKeyboardCues() const;

    /// Registers the class unless the system has it already, and creates the window. False on failure.
    bool Create(const WindowPlan& plan);
    /// The same for a class that has many windows: it is registered only once.
    bool Create(WindowClass& windowClass, const WindowPlan& plan);
    void Destroy();

    /// One line per message, calling a named handler; all others are passed to Default. Exceptions are caught at the
    /// boundary to the system, which could not unwind them.
    virtual LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

    [[nodiscard]] Rect ClientRect() const;
    /// The whole window is painted again.
    void Invalidate() const;

  private:
    [[nodiscard]] static bool Register(const wchar_t* name, UINT style, const WindowPlan& plan);
    bool CreateOf(const wchar_t* className, const WindowPlan& plan);
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND handle_ = nullptr;
};

/// The module that holds the program's classes and resources.
[[nodiscard]] HINSTANCE ThisModule();

[[nodiscard]] inline Point PointFromLParam(LPARAM lParam) {
    return Point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace quillo
