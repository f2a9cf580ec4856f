#pragma once

#include <string_view>

#include "ports/user_notice.h"
#include "util/day_serial.h"

namespace quillo {

/// The note as the reminder dialog and the alert see it. They never outlive it: the note closes its forms before it
/// ends.
class ReminderOwner {
  public:
    virtual ~ReminderOwner() = default;

    /// Marks the note changed.
    virtual void SetReminder(DaySerial when) = 0;
    /// Marks the note changed, so that a canceled reminder does not come back after a restart.
    virtual void CancelReminderByUser() = 0;
    /// Hides the note and shows its own icon in the notification area.
    virtual void MinimizeByUser() = 0;
    virtual void HideByUser() = 0;
    /// Shows a balloon on the note's own icon.
    virtual void ShowIconBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) = 0;
    /// Shows the note again.
    virtual void Popup() = 0;
    /// Gives the note the keyboard focus.
    virtual void Activate() = 0;

    /// The reminder dialog has closed.
    virtual void SetReminderClosing() = 0;
    /// The alert has closed.
    virtual void ReminderClosing() = 0;
};

}  // namespace quillo
