#pragma once

#include <optional>
#include <string_view>

#include "notes/note_codec.h"
#include "reminders/reminder_alert.h"
#include "util/day_serial.h"

namespace quillo {

class NoteDialogs;
struct Note;

/// The reminder of one note, with the dialog in which it is set and the alert that reports it. No operation marks the
/// note changed.
class ReminderKeeper {
  public:
    explicit ReminderKeeper(Note& note) : note_(note) {}

    /// The reminder as the note's file stores it.
    [[nodiscard]] std::optional<NoteReminder> Stored() const;
    void Apply(const NoteReminder& stored);

    /// Opens the dialog, or brings forward the one that is open.
    void Ask(NoteDialogs& dialogs);
    void DialogClosed() { dialogOpen_ = false; }
    void Set(DaySerial when);
    void Cancel() { note_.ReminderSet = false; }

    [[nodiscard]] ReminderCheck Check(DaySerial now) const;
    /// Opens the alert with the note's text and pumps messages: the note may be closed afterwards. True if the alert is
    /// open and the user has not dismissed it meanwhile.
    [[nodiscard]] bool Alert(NoteDialogs& dialogs, std::u16string_view text);
    void AlertClosed() { alertOpen_ = false; }

  private:
    Note& note_;
    bool dialogOpen_ = false;
    bool alertOpen_ = false;
};

}  // namespace quillo
