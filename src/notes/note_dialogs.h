#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "notes/note_view.h"
#include "reminders/reminder_form.h"
#include "reminders/reminder_services.h"
#include "reminders/set_reminder_form.h"

namespace quillo {

class BusyFlag;
class NoteColorForm;

struct NoteDialogServices {
    ReminderDialogServices reminders;
    AlertServices alerts;
    NoteColorForm& colors;
    BusyFlag& modal;  ///< set while a modal dialog is open
};

/// The dialogs of one note, owned by its window, and the alert of its reminder.
class NoteDialogForms : public NoteDialogs {
  public:
    /// Nothing is opened before `window` has been created.
    NoteDialogForms(OpenNote& note, const Window& window, const NoteDialogServices& services)
        : note_(note), window_(window), services_(services) {}

    // NoteDialogs
    [[nodiscard]] bool OpenReminder(DaySerial existing) override;
    void BringReminderForward() override;
    [[nodiscard]] bool OpenAlert(std::u16string_view text) override;
    [[nodiscard]] bool OpenColors(bool own, const ColorScheme& colors) override;
    [[nodiscard]] std::u16string AskCopyPath() override;

    /// Cancels the system's dialogs, which run message loops of their own: the note is about to end.
    void CancelModal() const;
    /// The note's window is being destroyed, and with it the dialogs that it owns.
    void Close();

  private:
    OpenNote& note_;
    const Window& window_;
    NoteDialogServices services_;
    std::unique_ptr<SetReminderForm> reminderDialog_;  ///< has no window after it has closed
    std::unique_ptr<ReminderForm> reminderAlert_;
};

}  // namespace quillo
