#pragma once

#include <functional>
#include <vector>

#include "bench/program_run.h"
#include "platform/win32.h"

namespace quillo::bench {

/// The windows of a running program with notes.
struct Hand {
    const ProgramRun& run;
    HWND note;   ///< the one that is typed into, moved and sized
    HWND large;  ///< the one with the large text
    std::vector<HWND> all;

    /// The frontmost of the samples, and the one with the large text; both null if they are not on the screen.
    [[nodiscard]] static Hand Of(const ProgramRun& run);
};

/// What an action cost the program.
struct Cost {
    double processor = -1;  ///< milliseconds of processor time; negative if the action had no effect
    double clock = -1;      ///< milliseconds that the user waits
};

/// Runs an action that returns false if it had no effect.
[[nodiscard]] Cost CostOf(const ProgramRun& run, const std::function<bool()>& action);

/// Dispatches the messages of this program until the condition holds; false if that takes too long. The system waits
/// for this program's windows when the focus leaves them.
[[nodiscard]] bool WaitUntil(const std::function<bool()>& condition);

/// Each returns false if the program does not follow.

/// Types that many characters at the end of the note's text, in words and lines.
[[nodiscard]] bool Type(const Hand& hand, int characters);
/// Moves the note by its strip over the other notes and back.
[[nodiscard]] bool Drag(const Hand& hand);
/// Sizes the note by its lower right corner and back.
[[nodiscard]] bool Resize(const Hand& hand);
/// Moves the pointer over the cross of the note and off again.
[[nodiscard]] bool Hover(const Hand& hand, int changes);
/// Scrolls the large note down by pages, then back to its beginning.
[[nodiscard]] bool Scroll(const Hand& hand, int pages);
/// Brings all notes in front of a window that covers them.
[[nodiscard]] bool ShowAllNotes(const Hand& hand);

/// Opens the menu with the icon beside the clock, until it is opaque, or until its first frame.
[[nodiscard]] bool OpenMenu(const Hand& hand);
[[nodiscard]] bool OpenMenuToFirstFrame(const Hand& hand);
[[nodiscard]] bool CloseMenu();
/// The hotkey of a new note, until its text box has the caret.
[[nodiscard]] bool NewNoteByHotKey(const Hand& hand);
/// Starts the program again with a note file, until its note is painted.
[[nodiscard]] bool OpenFileBySecondStart(const Hand& hand, const std::wstring& exe, const std::wstring& file);

}  // namespace quillo::bench
