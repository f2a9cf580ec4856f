#pragma once

#include <optional>
#include <string>

#include "harness/window_text.h"
#include "platform/win32.h"

namespace quillo::e2e {

/// The system's dialog for a file, a font or a folder, owned by a window of the program.
class ChoiceDialog {
  public:
    /// The one that has the focus now, if any.
    [[nodiscard]] static std::optional<ChoiceDialog> Find(HWND owner);
    /// Waits for that; nothing if none appears.
    [[nodiscard]] static std::optional<ChoiceDialog> WaitFor(HWND owner);

    /// Whether one of its controls has exactly that text.
    [[nodiscard]] bool Says(const std::wstring& text) const;
    explicit ChoiceDialog(HWND window) : window_(window) {}

    [[nodiscard]] HWND Handle() const { return window_; }
    [[nodiscard]] bool HasKeyboard() const { return IsChild(window_, KeyboardWindow()) != 0; }
    [[nodiscard]] std::wstring Title() const;
    /// Types into the control that has the focus.
    [[nodiscard]] bool Type(const std::wstring& text) const;
    /// Types into the box of a combo box, found with the Tab key, and replaces its content.
    [[nodiscard]] bool TypeInto(int list, const std::wstring& text) const;
    /// Presses OK, and waits until the dialog has closed.
    [[nodiscard]] bool Accept() const;
    /// Presses Esc, and waits until the dialog has closed.
    [[nodiscard]] bool Cancel() const;

  private:
    [[nodiscard]] bool Goes() const;

    HWND window_;
};

}  // namespace quillo::e2e
