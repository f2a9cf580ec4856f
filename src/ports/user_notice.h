#pragma once

#include <string_view>

namespace quillo {

/// The balloon icons, by the shell's own numbers.
enum class BalloonIcon : int { None = 0, Information = 1, Warning = 2, Error = 3 };

/// What a message box asks, and which answer stands as the default.
enum class Question { YesNoDefaultNo, OkCancelDefaultCancel };

/// The sound events of the system that the program plays.
enum class SystemSound { RestoreUp, RestoreDown, Asterisk };

/// Everything by which the program speaks to its user outside its own windows. Message boxes bear the title "Quillo"
/// where nothing else is said, and pump messages: after one, a note may be gone.
class UserNotice {
  public:
    virtual ~UserNotice() = default;

    /// A message box with the critical-stop icon.
    virtual void Fail(std::u16string_view text) = 0;
    /// A message box with the information icon.
    virtual void Inform(std::u16string_view text) = 0;
    /// A message box with the exclamation icon.
    virtual void Warn(std::u16string_view text) = 0;
    /// The same, titled "Warning": of what the user has just chosen.
    virtual void WarnOfChoice(std::u16string_view text) = 0;
    /// A message box with the exclamation icon; true for Yes or OK.
    [[nodiscard]] virtual bool Ask(std::u16string_view text, Question question) = 0;
    /// A balloon from the program's icon in the notification area.
    virtual void Balloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon) = 0;
    virtual void Play(SystemSound sound) = 0;
};

}  // namespace quillo
