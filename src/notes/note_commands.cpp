#include "notes/note_commands.h"

#include <array>

#include "notes/open_note.h"

namespace quillo {
namespace {

/// Shift counts for W alone; with the other letters it does not matter.
enum class ShiftRule { Any, Up, Down };

struct Shortcut {
    char letter;  ///< letters are their own virtual keys
    ShiftRule shift;
    NoteAction action;
};

constexpr std::array<Shortcut, 8> kShortcuts = {{
    {'A', ShiftRule::Any, NoteAction::SelectAll},
    {'B', ShiftRule::Any, NoteAction::ToggleLargeText},
    {'M', ShiftRule::Any, NoteAction::Minimize},
    {'P', ShiftRule::Any, NoteAction::TogglePin},
    {'R', ShiftRule::Any, NoteAction::AskReminder},
    {'T', ShiftRule::Any, NoteAction::AddTimestamp},
    {'W', ShiftRule::Up, NoteAction::ClickClose},
    {'W', ShiftRule::Down, NoteAction::QuickDelete},
}};

bool Matches(ShiftRule rule, bool shift) {
    return rule == ShiftRule::Any || (rule == ShiftRule::Down) == shift;
}

}  // namespace

NoteAction NoteKeyAction(int virtualKey, NoteKeyState held) {
    if (!held.control || held.rightAlt) return NoteAction::None;
    for (const Shortcut& shortcut : kShortcuts) {
        if (shortcut.letter == virtualKey && Matches(shortcut.shift, held.shift)) return shortcut.action;
    }
    return NoteAction::None;
}

void Perform(NoteAction action, OpenNote& note) {
    switch (action) {
        case NoteAction::None:
        case NoteAction::SelectAll:
        case NoteAction::OpenMenu:
            return;
        case NoteAction::AskReminder:
            return note.AskReminder();
        case NoteAction::AddTimestamp:
            return note.AddTimestamp();
        case NoteAction::ToggleLargeText:
            return note.ToggleLargeText();
        case NoteAction::ChangeColor:
            return note.AskNoteColor();
        case NoteAction::SaveCopy:
            return;
        case NoteAction::Mail:
            return note.MailNote();
        case NoteAction::Print:
            return note.PrintNote();
        case NoteAction::Hide:
            return note.HideByUser();
        case NoteAction::QueryDelete:
            return note.QueryDeleteNote();
        case NoteAction::Close:
            return note.CloseNote();
        case NoteAction::ClickClose:
            return note.CloseButtonClick();
        case NoteAction::QuickDelete:
            return note.QuickDelete();
        case NoteAction::Minimize:
            return note.MinimizeByUser();
        case NoteAction::TogglePin:
            return note.TogglePin();
        case NoteAction::Show:
            return note.ShowFromIcon();
    }
}

}  // namespace quillo
