#pragma once

#include <string>

#include "platform/unique_handle.h"
#include "util/units.h"

// After windows.h.
#include <commctrl.h>

namespace quillo {

/// The tool tips of a window's children. The control is made when the first of them is about to be wanted, and asks
/// the window for each text when it shows it (TTN_GETDISPINFOW).
class ToolTips {
  public:
    ToolTips() = default;
    ToolTips(const ToolTips&) = delete;
    ToolTips& operator=(const ToolTips&) = delete;
    ~ToolTips() { Destroy(); }

    [[nodiscard]] bool IsCreated() const { return tips_ != nullptr; }
    /// Above topmost windows too. The window owns the control, which goes with it. False on failure.
    bool Create(HWND window, const Scale& scale);
    void Add(HWND child);
    /// A part of the window itself, in its own pixels; `id` comes back with the question for its text.
    void AddArea(UINT_PTR id, const RECT& area);
    /// While they are not active none stands: they would cover a menu that is open.
    void SetActive(bool active);
    /// Until the next Create: for a window that has another scale now.
    void Destroy();
    /// The window has gone, and the control with it.
    void DropHandle() { tips_ = nullptr; }

    /// Answers the control's question with a text, CR LF between its lines.
    void Answer(NMTTDISPINFOW& question, std::u16string text);

  private:
    HWND tips_ = nullptr;
    HWND window_ = nullptr;
    std::u16string text_;
    FontHandle font_;
};

}  // namespace quillo
