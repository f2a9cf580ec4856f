#include "reminders/reminder_alert.h"

#include <algorithm>

namespace quillo {
namespace {

constexpr int kKeyEscape = 27;
constexpr int kKeyW = 87;
// Pixels at 96 dpi.
constexpr int kStripHeight = 35;
constexpr int kStripRightGap = 40;
constexpr int kCascadeStep = 35;  // leaves the strip of the alert below visible

// The offset of a place of the cascade from the start; it wraps around at the end of the work area.
int CascadeOffset(std::size_t place, int room, int step) {
    const int places = std::max(room / step, 0) + 1;
    return static_cast<int>(place % static_cast<std::size_t>(places)) * step;
}

}  // namespace

ReminderCheck CheckReminder(bool reminderSet, DaySerial reminderTime, DaySerial now, bool alertOpen) {
    if (!reminderSet || reminderTime > now) return ReminderCheck::Nothing;
    return alertOpen ? ReminderCheck::Clear : ReminderCheck::ClearAndAlert;
}

bool IsAlertDragStrip(Point at, int innerWidth, Scale scale) {
    return at.y < scale.Px(kStripHeight) && at.x < innerWidth - scale.Px(kStripRightGap);
}

bool DismissesAlert(int virtualKey, AlertKeys keys) {
    if (virtualKey == kKeyEscape) return true;
    return virtualKey == kKeyW && keys.control && !keys.rightAlt;
}

Rect PlaceAlert(Size alert, const Rect& workArea, std::size_t alertsOpen, Scale scale) {
    const int left = workArea.left + std::max(workArea.width - alert.width, 0) / 2;
    const int top = workArea.top + std::max(workArea.height - alert.height, 0) / 2;
    const int room = std::min(workArea.Right() - alert.width - left, workArea.Bottom() - alert.height - top);
    const int offset = CascadeOffset(alertsOpen, room, scale.Px(kCascadeStep));
    return Rect{left + offset, top + offset, alert.width, alert.height};
}

}  // namespace quillo
