#pragma once

namespace quillo {

/// What a note does on a key that its text box never sees.
enum class NoteAction {
    None,
    SelectAll,
    ToggleLargeText,
    Minimize,
    TogglePin,
    AskReminder,
    AddTimestamp,
    ClickClose,
    QuickDelete
};

/// What is held down with a key.
struct NoteKeyState {
    bool control = false;
    bool shift = false;
    bool rightAlt = false;  ///< AltGr, which the system also reports as Ctrl: a character, not a command
};

/// The action of a key going down in a note; the character that would follow it is swallowed too.
[[nodiscard]] NoteAction NoteKeyAction(int virtualKey, NoteKeyState held);

}  // namespace quillo
