#include "notes/note_commands.h"

#include <algorithm>
#include <array>

#include "app/base/settings.h"
#include "notes/note.h"
#include "ports/locale_text.h"
#include "util/text.h"

namespace quillo {
namespace {

/// The context-menu key between the right Windows and Ctrl keys.
constexpr int kContextMenuKey = 0x5D;

/// The Shift key matters for W and Tab only.
enum class ShiftRule { Any, Up, Down };

struct Shortcut {
    char key;  ///< letters and Tab are their own virtual keys
    ShiftRule shift;
    NoteAction action;
};

constexpr std::array<Shortcut, 10> kShortcuts = {{
    {'A', ShiftRule::Any, NoteAction::SelectAll},
    {'B', ShiftRule::Any, NoteAction::ToggleLargeText},
    {'M', ShiftRule::Any, NoteAction::Minimize},
    {'P', ShiftRule::Any, NoteAction::TogglePin},
    {'R', ShiftRule::Any, NoteAction::AskReminder},
    {'T', ShiftRule::Any, NoteAction::AddTimestamp},
    {'W', ShiftRule::Up, NoteAction::ClickClose},
    {'W', ShiftRule::Down, NoteAction::QuickDelete},
    {'\t', ShiftRule::Up, NoteAction::NextNote},
    {'\t', ShiftRule::Down, NoteAction::PreviousNote},
}};

bool Matches(ShiftRule rule, bool shift) {
    return rule == ShiftRule::Any || (rule == ShiftRule::Down) == shift;
}

}  // namespace

bool HasNoteKeyAction(int virtualKey) {
    return virtualKey == kContextMenuKey ||
           std::any_of(kShortcuts.begin(), kShortcuts.end(),
                       [virtualKey](const Shortcut& shortcut) { return shortcut.key == virtualKey; });
}

NoteAction NoteKeyAction(int virtualKey, NoteKeyState held) {
    if (virtualKey == kContextMenuKey) return NoteAction::OpenMenu;
    if (!held.control || held.rightAlt) return NoteAction::None;
    for (const Shortcut& shortcut : kShortcuts) {
        if (shortcut.key == virtualKey && Matches(shortcut.shift, held.shift)) return shortcut.action;
    }
    return NoteAction::None;
}

std::u16string KeyTextOf(NoteAction action) {
    if (action == NoteAction::OpenMenu) return u"Shift+F10";
    for (const Shortcut& shortcut : kShortcuts) {
        if (shortcut.action != action) continue;
        const std::u16string held = shortcut.shift == ShiftRule::Down ? u"Ctrl+Shift+" : u"Ctrl+";
        return shortcut.key == '\t' ? held + u"Tab" : held + static_cast<char16_t>(shortcut.key);
    }
    return {};
}

std::vector<NoteMenuItem> ArrowMenuItems(const Note& note) {
    return {
        {u"Set reminder...", NoteAction::AskReminder},
        {u"Add time and date", NoteAction::AddTimestamp},
        {u"Large text", NoteAction::ToggleLargeText, note.LargeText},
        {u"Change note color...", NoteAction::ChangeColor},
        {u"Email note...", NoteAction::Mail},
        {u"Save a copy of this note...", NoteAction::SaveCopy},
        {u"Print note", NoteAction::Print},
        {u"Hide note", NoteAction::Hide},
        {u"Delete note", NoteAction::QueryDelete},
        {u"Close note", NoteAction::Close},
    };
}

std::vector<NoteMenuItem> IconMenuItems() {
    return {
        {u"Show this note", NoteAction::Show, false, true},
        {u"Delete this note", NoteAction::QueryDelete},
    };
}

NoteTips DescribeNoteButtons(const Note& note, std::u16string_view text, const Settings& settings) {
    const auto withKeys = [](std::u16string_view words, NoteAction action) {
        return std::u16string(words) + u" (" + KeyTextOf(action) + u")";
    };
    NoteTips tips;
    tips.menu = withKeys(u"Note menu", NoteAction::OpenMenu);
    tips.pushpin = withKeys(note.Pinned ? u"No longer always on top" : u"Always on top", NoteAction::TogglePin);
    std::u16string_view close = u"Save as a file and close";
    if (!note.ReminderSet && Trim(text).empty()) {
        close = u"Close";
    } else if (settings.minimizeToTray) {
        close = u"Minimize to an icon";
    } else if (note.ReminderSet) {
        close = u"Hide until the reminder";
    }
    const bool forGood = settings.dontRecycleNotes || text.empty();
    tips.close = withKeys(close, NoteAction::ClickClose) + u"\r\n" +
                 withKeys(forGood ? u"Right click: delete for good" : u"Right click: move to the Recycle Bin",
                          NoteAction::QuickDelete);
    return tips;
}

std::u16string TimeStampText(DaySerial now, LocaleText& locale) {
    return u"(" + locale.GeneralDate(now) + u")\r\n\r\n";
}

}  // namespace quillo
