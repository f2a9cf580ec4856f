#include "notes/note_dialogs.h"

#include "notes/note_color_form.h"
#include "notes/open_note.h"
#include "platform/file_dialogs.h"
#include "util/busy_flag.h"

// After windows.h.
#include <commdlg.h>

namespace quillo {

bool NoteDialogForms::OpenReminder(DaySerial existing) {
    reminderDialog_ = std::make_unique<SetReminderForm>(&note_, services_.reminders);
    return reminderDialog_->Initialize(window_.Handle(), existing);
}

void NoteDialogForms::BringReminderForward() {
    if (reminderDialog_) reminderDialog_->BringForward();
}

bool NoteDialogForms::OpenAlert(std::u16string_view text) {
    const Note& note = note_.Data();
    reminderAlert_ = std::make_unique<ReminderForm>(&note_, services_.alerts);
    return reminderAlert_->Initialize(text, AlertColors{note.NoteColor, note.BorderColor, note.TextColor});
}

bool NoteDialogForms::OpenColors(bool own, const ColorScheme& colors) {
    return services_.colors.ShowFor(window_.Handle(), note_, own, colors);
}

std::u16string NoteDialogForms::AskCopyPath() {
    FileDialogPlan plan;
    plan.title = u"Save sticky note...";
    plan.filter = u"Sticky notes|*.qln|All files|*.*";
    plan.defaultExtension = u"qln";
    // Intended: the last flag has no effect in a save dialog, and is kept.
    plan.flags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST;
    const BusyFlag::Scope busy(services_.modal);
    return BrowseForFileToSave(window_.Handle(), plan);
}

void NoteDialogForms::CancelModal() const {
    CancelDialogsOf(window_.Handle());
}

void NoteDialogForms::Close() {
    if (reminderAlert_) reminderAlert_->Unload();
    services_.colors.DropTarget(note_);
}

}  // namespace quillo
