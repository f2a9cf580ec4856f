#include "notes/note_keys.h"

#include <array>

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

}  // namespace quillo
