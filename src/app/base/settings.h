#pragma once

#include <array>
#include <string>
#include <string_view>

#include "util/color_word.h"

namespace quillo {

/// The names of the settings' values in the user's registry key.
namespace setting {
inline constexpr std::array<std::u16string_view, 4> kShortcuts = {u"Shortcut 1", u"Shortcut 2", u"Shortcut 3",
                                                                  u"Shortcut 4"};
inline constexpr std::u16string_view kNoteFont = u"Note font";
inline constexpr std::u16string_view kNoteFontSize = u"Note font size";
inline constexpr std::u16string_view kNoteFontStyle = u"Note font style";
inline constexpr std::u16string_view kNoteFontCharset = u"Note font charset";
inline constexpr std::u16string_view kNoteColor = u"Note color";
inline constexpr std::u16string_view kNoteBorderColor = u"Note border color";
inline constexpr std::u16string_view kNoteTextColor = u"Note text color";
inline constexpr std::u16string_view kNoteTransparency = u"Note transparency";
inline constexpr std::u16string_view kNoteOpacity = u"Note opacity";
inline constexpr std::u16string_view kMinimizeToTray = u"Minimize to tray";
inline constexpr std::u16string_view kNoDragAndDrop = u"No drag and drop";
inline constexpr std::u16string_view kShowScrollBars = u"Show scroll bars";
inline constexpr std::u16string_view kRandomNoteColor = u"Random note color";
inline constexpr std::u16string_view kTimestampNewNotes = u"Timestamp new notes";
inline constexpr std::u16string_view kHighContrastOff = u"High contrast off";
inline constexpr std::u16string_view kDontRecycleNotes = u"Don't recycle notes";
inline constexpr std::u16string_view kDisableBalloonHelp = u"Disable balloon help";
inline constexpr std::u16string_view kDisableAnimation = u"Disable animation";
inline constexpr std::u16string_view kReminder = u"Reminder";
inline constexpr std::u16string_view kNoteFolder = u"Note folder";
inline constexpr std::u16string_view kDoNotRememberFilenames = u"Do not remember filenames";
inline constexpr std::u16string_view kAutoPinNewNotes = u"Auto-pin new notes";
inline constexpr std::u16string_view kDoNotAdjustNotes = u"Do not adjust notes";
inline constexpr std::u16string_view kNewNoteHotkey = u"New note hotkey";
inline constexpr std::u16string_view kShowNotesHotkey = u"Show notes hotkey";
inline constexpr std::u16string_view kShownHelp = u"Shown Help";
inline constexpr std::u16string_view kStartupMode = u"Startup Mode";
/// The same value as the options dialog writes it (intended): names are compared without regard to case.
inline constexpr std::u16string_view kStartupModeWritten = u"Startup mode";
// The program records these for itself; they are read and written where they are used.
inline constexpr std::u16string_view kHasHiddenNotes = u"Has hidden notes";  ///< the hint about hiding was shown
inline constexpr std::u16string_view kNotes = u"Notes";                      ///< the number of notes in the old store
}  // namespace setting

/// The note font: one description shared by every note.
struct FontSetting {
    std::u16string name = u"Tahoma";
    double size = 8;  ///< points, 7 to 32
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThrough = false;
    int charset = 0;  ///< applied when above 0
    friend bool operator==(const FontSetting&, const FontSetting&) = default;
};

/// Every option of the program, as loaded at start-up, with its default. Members are named after their registry values.
struct Settings {
    std::array<std::u16string, 4> shortcuts;
    FontSetting noteFont;
    ColorWord noteColor{14155262};
    ColorWord noteBorderColor{3723262};
    ColorWord noteTextColor{0};
    bool noteTransparency = false;
    int noteOpacity = 192;  ///< 1 to 255
    bool minimizeToTray = false;
    bool dragAndDrop = true;  ///< stored inverted, as "No drag and drop"
    bool showScrollBars = false;
    bool randomNoteColor = true;
    bool timestampNewNotes = false;
    bool highContrastOff = false;
    bool dontRecycleNotes = false;
    bool disableBalloonHelp = false;
    bool animation = true;      ///< stored inverted, as "Disable animation"
    std::u16string reminder;    ///< path of the sound file
    std::u16string noteFolder;  ///< offered when a note is saved as a file
    bool doNotRememberFilenames = false;
    bool autoPinNewNotes = false;
    bool doNotAdjustNotes = false;
    int newNoteHotkey = 78;    ///< virtual key
    int showNotesHotkey = 83;  ///< virtual key
    bool shownHelp = false;
    int startupMode = 0;  ///< 1 or more: the Run value is deleted when the program ends with no note open
    bool useRoamingProfile = false;
};

}  // namespace quillo
