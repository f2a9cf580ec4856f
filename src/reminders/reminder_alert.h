#pragma once

#include <cstddef>
#include <cstdint>

#include "util/day_serial.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

/// How often the sound comes again until the alert is dismissed.
inline constexpr std::uint32_t kAlertSoundMilliseconds = 10'000;

/// What a look at a note's reminder brings about.
enum class ReminderCheck {
    Nothing,
    Clear,         ///< forget the reminder; the alert of an earlier one is still open
    ClearAndAlert  ///< forget the reminder, open the alert, then hide the note
};
/// Due at its very moment and at any time after it. Forgetting it does not mark the note changed.
[[nodiscard]] ReminderCheck CheckReminder(bool reminderSet, DaySerial reminderTime, DaySerial now, bool alertOpen);

/// Whether a press there drags the alert; anywhere else a click dismisses it. `at` and `innerWidth` are device pixels.
[[nodiscard]] bool IsAlertDragStrip(Point at, int innerWidth, Scale scale);

struct AlertKeys {
    bool control = false;
    bool rightAlt = false;  ///< AltGr, which the system also reports as Ctrl: a character, not a command
};
/// Whether a key going down dismisses the alert; its key-press is then swallowed.
[[nodiscard]] bool DismissesAlert(int virtualKey, AlertKeys keys);

/// Where an alert shows: in the middle of the work area, the next ones stepping down and to the right so that each
/// can be seen, each above the earlier ones. `alertsOpen` counts those already on the screen.
[[nodiscard]] Rect PlaceAlert(Size alert, const Rect& workArea, std::size_t alertsOpen, Scale scale);

}  // namespace quillo
