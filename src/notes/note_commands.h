#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "util/day_serial.h"

namespace quillo {

class LocaleText;
struct Note;
struct Settings;

/// Every command of a note, from a key, one of its menus or a button.
enum class NoteAction {
    None,
    SelectAll,
    OpenMenu,
    AskReminder,
    AddTimestamp,
    ToggleLargeText,
    ChangeColor,
    Mail,
    SaveCopy,
    Print,
    Hide,  ///< with the hint that is shown once
    QueryDelete,
    Close,       ///< even with a reminder set
    ClickClose,  ///< the close button's command
    QuickDelete,
    Minimize,
    TogglePin,
    NextNote,      ///< moves the keyboard focus to the next visible note
    PreviousNote,  ///< the same, to the previous one
    Show           ///< from its icon
};

/// The modifier keys that are held down.
struct NoteKeyState {
    bool control = false;
    bool shift = false;
    bool rightAlt = false;  ///< AltGr, which the system also reports as Ctrl: a character, not a command
};

/// Whether the key has an action in a note, alone or with any modifier keys.
[[nodiscard]] bool HasNoteKeyAction(int virtualKey);

/// The action of a key press in a note; the key's character is then discarded as well.
[[nodiscard]] NoteAction NoteKeyAction(int virtualKey, NoteKeyState held);

/// The name of an action's keys as the user reads it, "Ctrl+Shift+W"; "" for an action without keys. Tool tips and the
/// Help page show it, and scripts/check_keys.py compares the help with the same table.
[[nodiscard]] std::u16string KeyTextOf(NoteAction action);

/// One line of a menu.
struct NoteMenuItem {
    std::u16string_view caption;
    NoteAction action = NoteAction::None;
    bool checked = false;
    bool bold = false;  ///< the action of a double click

    friend bool operator==(const NoteMenuItem&, const NoteMenuItem&) = default;
};

/// The menu of a note's menu button, from top to bottom.
[[nodiscard]] std::vector<NoteMenuItem> ArrowMenuItems(const Note& note);
/// The menu of a note's own icon in the notification area.
[[nodiscard]] std::vector<NoteMenuItem> IconMenuItems();

/// The tool tips of a note: each button's current action and the keys that do the same, and the reminder.
struct NoteTips {
    std::u16string menu;
    std::u16string pushpin;
    std::u16string close;     ///< two lines with CR LF between them: its second action too
    std::u16string reminder;  ///< over its label; empty without one
};
/// The tool tips of the buttons; that of the reminder is left empty.
[[nodiscard]] NoteTips DescribeNoteButtons(const Note& note, std::u16string_view text, const Settings& settings);

/// What AddTimestamp inserts: the date and time in parentheses and an empty line.
[[nodiscard]] std::u16string TimeStampText(DaySerial now, LocaleText& locale);

}  // namespace quillo
