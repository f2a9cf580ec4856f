#pragma once

namespace quillo {

class OpenNote;

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
    Show  ///< from its icon
};

/// What is held down with a key.
struct NoteKeyState {
    bool control = false;
    bool shift = false;
    bool rightAlt = false;  ///< AltGr, which the system also reports as Ctrl: a character, not a command
};

/// The action of a key going down in a note; the character that would follow it is swallowed too.
[[nodiscard]] NoteAction NoteKeyAction(int virtualKey, NoteKeyState held);

/// Carries out an action on a note, which may be gone afterwards. What concerns the window alone (SelectAll, OpenMenu)
/// is the window's.
void Perform(NoteAction action, OpenNote& note);

}  // namespace quillo
