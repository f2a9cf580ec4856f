#pragma once

#include <string_view>

namespace quillo {

/// The balloon icons, with the shell's own numbers.
enum class BalloonIcon : int { None = 0, Information = 1, Warning = 2, Error = 3 };

/// The buttons of a message box that asks, and its default answer.
enum class Question { YesNoDefaultNo, OkCancelDefaultCancel };

/// The system's sound events that the program plays.
enum class SystemSound { RestoreUp, RestoreDown, Asterisk };

/// Messages to the user outside the program's own windows. A message box has the title "Quillo" unless a comment says
/// otherwise. It pumps messages: a note may be closed when the call returns.
class UserNotice {
  public:
    virtual ~UserNotice() = default;

    /// A message box with the critical-stop icon.
    virtual void Fail(std::u16string_view text) = 0;
    /// A message box with the information icon.
    virtual void Inform(std::u16string_view text) = 0;
    /// A message box with the exclamation icon.
    virtual void Warn(std::u16string_view text) = 0;
    /// The same with the title "Warning", about a choice that the user has just made.
    virtual void WarnOfChoice(std::u16string_view text) = 0;
    /// A message box with the exclamation icon; true for Yes or OK.
    [[nodiscard]] virtual bool Ask(std::u16string_view text, Question question) = 0;
    /// A balloon from the program's icon in the notification area.
    virtual void Balloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon) = 0;
    virtual void Play(SystemSound sound) = 0;
};

}  // namespace quillo
