#include "reminders/reminder_dialog.h"

#include "app/base/hints.h"
#include "app/base/settings.h"
#include "ports/locale_text.h"
#include "reminders/reminder_controls.h"
#include "reminders/reminder_phrase.h"
#include "reminders/reminder_text.h"

namespace quillo {

NoteAway ChooseNoteAway(const Settings& settings, const Hints& hints) {
    if (!settings.minimizeToTray) return NoteAway::Hide;
    if (!hints.HasBalloons()) return NoteAway::Minimize;
    return hints.HasHiddenNotes() ? NoteAway::Minimize : NoteAway::MinimizeWithBalloon;
}

void CarryOut(const ReminderStep& step, ReminderOwner* owner) {
    if (owner == nullptr) return;
    if (step.setReminder) owner->SetReminder(*step.setReminder);
    if (step.cancelReminder) owner->CancelReminderByUser();
    switch (step.noteAway) {
        case NoteAway::Stay:
            break;
        case NoteAway::Hide:
            owner->HideByUser();
            break;
        case NoteAway::Minimize:
            owner->MinimizeByUser();
            break;
        case NoteAway::MinimizeWithBalloon:
            owner->MinimizeByUser();
            owner->ShowIconBalloon(kMinimizedBalloonText, kMinimizedBalloonTitle, BalloonIcon::Information);
            break;
    }
}

ReminderDialog::ReminderDialog(DaySerial existing, bool hasNote, LocaleText& locale)
    : locale_(locale), existing_(existing), hasNote_(hasNote) {
    startText_ = existing_ == kNoReminder ? std::u16string(TextOf(ReminderControl::ReminderBox).caption)
                                          : locale_.GeneralDate(existing_);
}

std::u16string_view ReminderDialog::OkCaption() const {
    return cancelPanelShown_ ? kKeepReminderCaption : TextOf(ReminderControl::OKButton).caption;
}

ReminderStep ReminderDialog::PressOk(std::u16string_view text, NoteAway away, DaySerial now) {
    ReminderStep step;
    if (cancelPanelShown_) {
        step.unload = true;
        return step;
    }
    const ReminderPhrase phrase = ParseReminderPhrase(text, now, locale_);
    if (!phrase.when) return ShowMessage(phrase.message);
    if (!hasNote_) return step;  // there is nothing to set, and the form stays open
    step.setReminder = phrase.when;
    step.noteAway = away;
    step.unload = true;
    return step;
}

ReminderStep ReminderDialog::PressCancel() {
    ReminderStep step;
    if (cancelPanelShown_ || existing_ == kNoReminder) {
        step.cancelReminder = cancelPanelShown_;
        step.unload = true;
        return step;
    }
    cancelPanelShown_ = true;
    activeReminder_ = locale_.GeneralDate(existing_);
    message_ = kKeepOrCancelHint;  // intended: visible only if an earlier message has opened the line
    return step;
}

std::u16string ReminderDialog::Preview(std::u16string_view text, DaySerial now) const {
    if (cancelPanelShown_ || messageShown_) return {};
    const ReminderPhrase phrase = ParseReminderPhrase(text, now, locale_);
    return phrase.when ? PreviewText(*phrase.when, locale_) : std::u16string();
}

ReminderStep ReminderDialog::ShowMessage(std::u16string_view message) {
    ReminderStep step;
    step.playAsterisk = true;
    step.growForMessage = !messageShown_;
    step.selectAll = true;
    message_ = message;
    messageShown_ = true;
    return step;
}

}  // namespace quillo
