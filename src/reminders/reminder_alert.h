#pragma once

#include <cstddef>
#include <cstdint>

#include "util/day_serial.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

/// The interval at which the sound repeats until the alert is dismissed.
inline constexpr std::uint32_t kAlertSoundMilliseconds = 10'000;

/// The result of checking a note's reminder.
enum class ReminderCheck {
    Nothing,
    Clear,         ///< clear the reminder; an earlier alert is still open
    ClearAndAlert  ///< clear the reminder, open the alert, then hide the note
};
/// A reminder is due from its exact time on. Clearing it does not mark the note changed.
[[nodiscard]] ReminderCheck CheckReminder(bool reminderSet, DaySerial reminderTime, DaySerial now, bool alertOpen);

/// Whether a press there drags the alert; anywhere else a click dismisses it. `at` and `innerWidth` are device pixels.
[[nodiscard]] bool IsAlertDragStrip(Point at, int innerWidth, Scale scale);

struct AlertKeys {
    bool control = false;
    bool rightAlt = false;  ///< AltGr, which the system also reports as Ctrl: a character, not a command
};
/// Whether a key press dismisses the alert; its character is then discarded.
[[nodiscard]] bool DismissesAlert(int virtualKey, AlertKeys keys);

/// The place of an alert: the middle of the work area, each further one a step down and to the right, so that all are
/// visible, each above the earlier ones. `alertsOpen` counts those already on the screen.
[[nodiscard]] Rect PlaceAlert(Size alert, const Rect& workArea, std::size_t alertsOpen, Scale scale);

}  // namespace quillo
