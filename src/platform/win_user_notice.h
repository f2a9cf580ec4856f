#pragma once

#include <functional>

#include "platform/win32.h"
#include "ports/user_notice.h"

namespace quillo {

class BusyFlag;

/// The owner of a message box: the note or dialog in which the user works, since nothing else asks. Null if that window
/// belongs to another program or is hidden.
[[nodiscard]] HWND MessageBoxOwner();

/// For every message box: it comes to the front, above pinned notes.
inline constexpr UINT kMessageBoxFlags = MB_SETFOREGROUND | MB_TOPMOST;

/// Message boxes, balloons and the system's sounds. A message box appears above pinned notes, and no other window of
/// the program accepts input until it is answered.
class WinUserNotice : public UserNotice {
  public:
    /// `dialogs` is set while a message box is open.
    explicit WinUserNotice(BusyFlag& dialogs) : dialogs_(dialogs) {}

    void Fail(std::u16string_view text) override;
    void Inform(std::u16string_view text) override;
    void Warn(std::u16string_view text) override;
    void WarnOfChoice(std::u16string_view text) override;
    [[nodiscard]] bool Ask(std::u16string_view text, Question question) override;
    void Balloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon) override;
    void Play(SystemSound sound) override;

    /// Called before a message box opens: no idle work runs while it is open.
    std::function<void()> onBox;
    /// Shows a balloon: title, text and icon.
    std::function<void(std::u16string_view, std::u16string_view, BalloonIcon)> onBalloon;

  private:
    int Box(std::u16string_view text, UINT flags, const wchar_t* title = L"Quillo");

    BusyFlag& dialogs_;
};

}  // namespace quillo
