#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quillo {

/// Every control of the reminder dialog, in the order of the table below.
enum class ReminderControl {
    MainPanel,
    ReminderBox,
    HideNoteCheck,
    HeadingLabel,
    InstructionLabel,
    ExamplesLabel,
    FirstExampleLabel,
    TwentyMinutesLabel,  ///< completed with TwentyMinutesExample
    TomorrowLabel,       ///< completed with TomorrowExample
    OKButton,
    CancelButton,
    CancelPanel,  ///< replaces MainPanel when the user is asked whether to keep a reminder
    CancelHeadingLabel,
    ActiveReminderLabel,
    CancelExplanationLabel,
    MessageLabel,
    DividerBar,
    PreviewLabel,  ///< in the message's place, quiet
};

struct ReminderControlText {
    ReminderControl control;
    std::u16string_view caption;
    std::u16string_view toolTip;  ///< empty: none
};

inline constexpr std::u16string_view kReminderDialogCaption = u"Set a reminder";
/// The inner margins of ReminderBox, left and right, in pixels at 96 dpi.
inline constexpr int kReminderBoxMargin = 3;

inline constexpr std::array<ReminderControlText, 18> kReminderControls = {{
    {ReminderControl::MainPanel, u"", u""},
    {ReminderControl::ReminderBox, u"in 15 minutes",
     u"Type the time at which you would like to be reminded in this box."},
    {ReminderControl::HideNoteCheck, u"Hide this note until then",
     u"Click here if you would like this note to be hidden until the reminder event occurs."},
    {ReminderControl::HeadingLabel, u"Set a reminder for this sticky note", u""},
    {ReminderControl::InstructionLabel,
     u"When would you like to be reminded?  (If you decide you do not wish to be reminded, click Cancel reminder.)",
     u""},
    {ReminderControl::ExamplesLabel, u"Examples:", u""},
    {ReminderControl::FirstExampleLabel, u"\u2022   in 20 minutes", u""},
    {ReminderControl::TwentyMinutesLabel, u"\u2022   ", u""},
    {ReminderControl::TomorrowLabel, u"\u2022   ", u""},
    {ReminderControl::OKButton, u"Set reminder", u"Click here to set this reminder."},
    {ReminderControl::CancelButton, u"Cancel reminder", u"Click here to not be reminded at this time."},
    {ReminderControl::CancelPanel, u"", u""},
    {ReminderControl::CancelHeadingLabel, u"You already have a reminder set.", u""},
    {ReminderControl::ActiveReminderLabel, u"", u""},
    {ReminderControl::CancelExplanationLabel,
     u"Click \"Keep reminder\" if you still wish to be reminded at this time, or \"Cancel reminder\" if you want to "
     u"cancel this reminder completely.",
     u""},
    {ReminderControl::MessageLabel, u"", u""},
    {ReminderControl::DividerBar, u"", u""},
    {ReminderControl::PreviewLabel, u"", u""},
}};

[[nodiscard]] constexpr const ReminderControlText& TextOf(ReminderControl control) {
    return kReminderControls[static_cast<std::size_t>(control)];
}

/// OKButton's caption when the user is asked whether to keep a reminder.
inline constexpr std::u16string_view kKeepReminderCaption = u"Keep reminder";
/// Intended in lower case, unlike the captions that it names.
inline constexpr std::u16string_view kKeepOrCancelHint = u"Click \"keep reminder\" or \"cancel reminder\" above.";

/// Shown on a note's own icon the first few times that a reminder hides the note there.
inline constexpr std::u16string_view kMinimizedBalloonTitle = u"Note minimized";
inline constexpr std::u16string_view kMinimizedBalloonText =
    u"Your note has been minimized to this icon.  You can click this icon at any time to display it again.";

}  // namespace quillo
