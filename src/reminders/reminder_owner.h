#pragma once

#include <string_view>

#include "ports/user_notice.h"
#include "util/day_serial.h"

namespace quillo {

/// What the reminder dialog and the alert ask of their note. They may outlive nothing: the note tells its forms to
/// close before it goes.
class ReminderOwner {
  public:
    virtual ~ReminderOwner() = default;

    /// Marks the note changed.
    virtual void SetReminder(DaySerial when) = 0;
    /// Marks the note changed, so that a canceled reminder does not come back after a restart.
    virtual void CancelReminderByUser() = 0;
    /// To the note's own icon in the notification area and out of sight.
    virtual void MinimizeByUser() = 0;
    virtual void HideByUser() = 0;
    /// A balloon on the note's own icon.
    virtual void ShowIconBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) = 0;
    /// Brings the note back into view.
    virtual void Popup() = 0;
    /// Gives the note the keyboard.
    virtual void Activate() = 0;

    /// The reminder dialog is gone.
    virtual void SetReminderClosing() = 0;
    /// The alert is gone.
    virtual void ReminderClosing() = 0;
};

}  // namespace quillo
