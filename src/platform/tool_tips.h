#pragma once

#include <string>

#include "platform/unique_handle.h"
#include "util/geometry.h"
#include "util/units.h"

// After windows.h.
#include <commctrl.h>

namespace quillo {

/// The tool tips of a window's children. Except for fixed texts, the control requests each text from the window when it
/// shows it (TTN_GETDISPINFOW).
class ToolTips {
  public:
    ToolTips() = default;
    ToolTips(const ToolTips&) = delete;
    ToolTips& operator=(const ToolTips&) = delete;
    ~ToolTips() { Destroy(); }

    [[nodiscard]] bool IsCreated() const { return tips_ != nullptr; }
    /// In front of topmost windows too. The window owns the control, which is destroyed with it. False on failure.
    bool Create(HWND window, const Scale& scale) { return Make(window, window, scale); }
    /// The same without an owner, for a dialog: a window that owns a topmost window cannot always stop being topmost
    /// and become so again.
    bool CreateUnowned(HWND window, const Scale& scale) { return Make(window, nullptr, scale); }
    /// Sets the font and the maximum width of the tips for another resolution.
    void SetScale(const Scale& scale);
    void Add(HWND child);
    /// Adds a child with a fixed text. The control looks for its messages of the mouse on its own.
    void AddText(HWND child, std::u16string text);
    /// Adds a part of the window itself, in device pixels; the request for its text has the same `id`.
    void AddArea(UINT_PTR id, const RECT& area);
    void MoveArea(UINT_PTR id, const RECT& area);
    /// Passes the messages of the mouse on, those of the window itself and of each child that was added. The control
    /// could look for them on its own, but would then examine every other message of these windows, too.
    void Relay(HWND window, UINT message, LPARAM at);
    /// Reports a pointer move over an area that the system regards as outside the client area, in device pixels.
    void PointerMoved(Point at);
    /// Hides the tip on the screen, if any, until the pointer rests on something again.
    void Hide();
    /// While inactive, no tip is shown: it would cover an open menu.
    void SetActive(bool active);
    /// Destroys the control until the next Create: for a window whose scale has changed.
    void Destroy();
    /// Called when the window has been destroyed, and the control with it.
    void DropHandle() { tips_ = nullptr; }

    /// Answers the control's request with a text; CR LF separates its lines.
    void Answer(NMTTDISPINFOW& question, std::u16string text);

  private:
    bool Make(HWND window, HWND owner, const Scale& scale);
    /// Sends the control a message about one tool: a child's handle, or the id of an area.
    void Send(UINT message, UINT_PTR id, UINT flags, wchar_t* text, const RECT& area = {}) const;

    HWND tips_ = nullptr;
    HWND window_ = nullptr;
    std::u16string text_;
    FontHandle font_;
};

}  // namespace quillo
