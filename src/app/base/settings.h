#pragma once

#include <array>
#include <string>

#include "util/color_word.h"

namespace quillo {

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

/// Every option of the program, as loaded at start-up. Members are named after their registry values.
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
    bool disableAnimation = false;
    std::u16string reminder;    ///< path of the sound file
    std::u16string noteFolder;  ///< offered when a note is saved as a file
    bool doNotRememberFilenames = false;
    bool autoPinNewNotes = false;
    bool doNotAdjustNotes = false;
    int newNoteHotkey = 78;    ///< virtual key
    int showNotesHotkey = 83;  ///< virtual key
    bool shownHelp = false;
    int startupMode = 0;  ///< 1 or more: the Run value is deleted when the program ends with no note open
    bool hasHiddenNotes = false;
    int notes = 0;  ///< notes in the legacy registry store
    bool useRoamingProfile = false;
};

}  // namespace quillo
