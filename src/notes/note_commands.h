#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillo {

class OpenNote;
struct Note;
struct Settings;

/// Every command that a note takes, whether by a key, from one of its menus or by a button.
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
    Hide,  ///< with the hint that comes once
    QueryDelete,
    Close,       ///< also with a reminder set
    ClickClose,  ///< as the close button does
    QuickDelete,
    Minimize,
    TogglePin,
    NextNote,      ///< the keyboard goes to the next visible note
    PreviousNote,  ///< or to the one before
    Show           ///< from its icon
};

/// What is held down with a key.
struct NoteKeyState {
    bool control = false;
    bool shift = false;
    bool rightAlt = false;  ///< AltGr, which the system also reports as Ctrl: a character, not a command
};

/// The action of a key going down in a note; the character that would follow it is swallowed too.
[[nodiscard]] NoteAction NoteKeyAction(int virtualKey, NoteKeyState held);

/// What the user reads of the keys of an action: "Ctrl+Shift+W"; "" for an action without keys. Tool tips and the Help
/// page show it, and scripts/check_keys.py holds the help to the same table.
[[nodiscard]] std::u16string KeyTextOf(NoteAction action);

/// One line of a menu.
struct NoteMenuItem {
    std::u16string_view caption;
    NoteAction action = NoteAction::None;
    bool checked = false;
    bool bold = false;  ///< what a double click would do

    friend bool operator==(const NoteMenuItem&, const NoteMenuItem&) = default;
};

/// The menu of a note's menu button, from top to bottom.
[[nodiscard]] std::vector<NoteMenuItem> ArrowMenuItems(const Note& note);
/// The menu of a note's own icon in the notification area.
[[nodiscard]] std::vector<NoteMenuItem> IconMenuItems();

/// The tool tips of a note's buttons: what each would do now, and the keys that do the same.
struct NoteButtonTips {
    std::u16string menu;
    std::u16string pushpin;
    std::u16string close;  ///< two lines, CR LF between them: its second action too
};
[[nodiscard]] NoteButtonTips DescribeNoteButtons(const Note& note, std::u16string_view text, const Settings& settings);

/// Carries out an action on a note, which may be gone afterwards. What concerns the window alone (SelectAll, OpenMenu)
/// is the window's.
void Perform(NoteAction action, OpenNote& note);

}  // namespace quillo
