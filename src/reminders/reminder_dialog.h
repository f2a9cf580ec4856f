#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "reminders/reminder_owner.h"
#include "util/day_serial.h"

namespace quillo {

class Hints;
class LocaleText;
struct Settings;

/// How a note leaves the screen until its reminder.
enum class NoteAway { Stay, Hide, Minimize, MinimizeWithBalloon };

/// Decides how a note leaves the screen when the user requests it. The hint about the note's icon is for users who have
/// not hidden a note yet.
[[nodiscard]] NoteAway ChooseNoteAway(const Settings& settings, const Hints& hints);

/// The effect of a button of the dialog, in this order: the note's part (see CarryOut), then the form's.
struct ReminderStep {
    std::optional<DaySerial> setReminder;
    bool cancelReminder = false;
    NoteAway noteAway = NoteAway::Stay;

    bool unload = false;  ///< the form closes; its other members no longer matter
    bool playAsterisk = false;
    bool growForMessage = false;  ///< show the message's container and enlarge the form by its height; at most once
    bool selectAll = false;       ///< in ReminderBox
    friend bool operator==(const ReminderStep&, const ReminderStep&) = default;
};

/// Carries out the note's part of a step; nothing without a note.
void CarryOut(const ReminderStep& step, ReminderOwner* owner);

/// The reminder dialog without its window: its content and the effect of its buttons. The window shows the state of the
/// members after every call.
class ReminderDialog {
  public:
    /// `existing` is the note's reminder or kNoReminder.
    ReminderDialog(DaySerial existing, bool hasNote, LocaleText& locale);

    /// The initial text of ReminderBox, all of it selected.
    [[nodiscard]] const std::u16string& StartText() const { return startText_; }

    /// Either MainPanel or CancelPanel is visible.
    [[nodiscard]] bool CancelPanelShown() const { return cancelPanelShown_; }
    [[nodiscard]] std::u16string_view OkCaption() const;
    /// ActiveReminderLabel, once the cancel panel is shown.
    [[nodiscard]] const std::u16string& ActiveReminder() const { return activeReminder_; }
    /// MessageLabel's caption. Its container is shown only once MessageShown.
    [[nodiscard]] std::u16string_view Message() const { return message_; }
    [[nodiscard]] bool MessageShown() const { return messageShown_; }

    /// OKButton. `away` applies if HideNoteCheck is checked; otherwise the note stays.
    [[nodiscard]] ReminderStep PressOk(std::u16string_view text, NoteAway away, DaySerial now);
    /// CancelButton. With a reminder set, the first press only asks.
    [[nodiscard]] ReminderStep PressCancel();

    /// The quiet line about the text while the user types: empty if the text is not understood, while a message is
    /// shown, and on the cancel panel. It decides nothing.
    [[nodiscard]] std::u16string Preview(std::u16string_view text, DaySerial now) const;

  private:
    [[nodiscard]] ReminderStep ShowMessage(std::u16string_view message);

    LocaleText& locale_;
    DaySerial existing_;
    bool hasNote_;
    bool cancelPanelShown_ = false;
    bool messageShown_ = false;
    std::u16string startText_;
    std::u16string activeReminder_;
    std::u16string_view message_;
};

}  // namespace quillo
