#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "reminders/reminder_owner.h"
#include "util/day_serial.h"

namespace quillo {

class LocaleText;
class RegistryApi;
struct OsFacts;
struct Settings;

/// How a note leaves the screen until its reminder.
enum class NoteAway { Stay, Hide, Minimize, MinimizeWithBalloon };

/// Decides how a note leaves the screen when the user asks for it: the hint about the note's icon is for users who
/// have not hidden a note yet.
[[nodiscard]] NoteAway ChooseNoteAway(const Settings& settings, const OsFacts& os, RegistryApi& registry);

/// What a button of the dialog brings about, in this order: the note's side (see CarryOut), then the form's.
struct ReminderStep {
    std::optional<DaySerial> setReminder;
    bool cancelReminder = false;
    NoteAway noteAway = NoteAway::Stay;

    bool unload = false;  ///< nothing of the form matters any more
    bool playAsterisk = false;
    bool growForMessage = false;  ///< show the message's container and grow the form by its height; at most once
    bool selectAll = false;       ///< in ReminderBox
    friend bool operator==(const ReminderStep&, const ReminderStep&) = default;
};

/// The note's side of a step. Without a note there is none.
void CarryOut(const ReminderStep& step, ReminderOwner* owner);

/// The reminder dialog without its window: what stands in it and what its buttons do. The window shows what the
/// members say after every call.
class ReminderDialog {
  public:
    /// `existing` is the note's reminder or kNoReminder.
    ReminderDialog(DaySerial existing, bool hasNote, LocaleText& locale);

    /// What ReminderBox holds at the start, all of it selected.
    [[nodiscard]] const std::u16string& StartText() const { return startText_; }

    /// Either MainPanel or CancelPanel is to be seen.
    [[nodiscard]] bool CancelPanelShown() const { return cancelPanelShown_; }
    [[nodiscard]] std::u16string_view OkCaption() const;
    /// ActiveReminderLabel, once the cancel panel is shown.
    [[nodiscard]] const std::u16string& ActiveReminder() const { return activeReminder_; }
    /// MessageLabel's caption. Its container is shown only once MessageShown.
    [[nodiscard]] std::u16string_view Message() const { return message_; }
    [[nodiscard]] bool MessageShown() const { return messageShown_; }

    /// OKButton. `away` counts when HideNoteCheck is checked; it stands for Stay otherwise.
    [[nodiscard]] ReminderStep PressOk(std::u16string_view text, NoteAway away, DaySerial now);
    /// CancelButton. The first press with a reminder set only asks.
    [[nodiscard]] ReminderStep PressCancel();

    /// What the quiet line says of the text while it is typed: empty when it is not understood, where a message is
    /// shown, and on the cancel panel. Nothing is decided by it.
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
