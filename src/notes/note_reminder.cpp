#include "notes/note_reminder.h"

#include "notes/note.h"
#include "notes/note_view.h"

namespace quillo {

std::optional<NoteReminder> ReminderKeeper::Stored() const {
    return note_.ReminderSet ? std::optional(NoteReminder{note_.ReminderTime}) : std::nullopt;
}

void ReminderKeeper::Apply(const NoteReminder& stored) {
    note_.ReminderSet = stored.when.has_value();
    note_.ReminderTime = stored.when.value_or(note_.ReminderTime);
}

void ReminderKeeper::Ask(NoteDialogs& dialogs) {
    if (dialogOpen_) return dialogs.BringReminderForward();
    dialogOpen_ = dialogs.OpenReminder(note_.ReminderSet ? note_.ReminderTime : kNoReminder);
}

void ReminderKeeper::Set(DaySerial when) {
    note_.ReminderTime = when;
    note_.ReminderSet = true;
}

ReminderCheck ReminderKeeper::Check(DaySerial now) const {
    return CheckReminder(note_.ReminderSet, note_.ReminderTime, now, alertOpen_);
}

bool ReminderKeeper::Alert(NoteDialogs& dialogs, std::u16string_view text) {
    alertOpen_ = true;
    const bool opened = dialogs.OpenAlert(text);
    if (!opened) alertOpen_ = false;
    return alertOpen_;
}

}  // namespace quillo
