#pragma once

#include <string>

#include "app/base/os_facts.h"
#include "app/base/settings.h"
#include "app/open_notes.h"

namespace quillo {

/// The program-wide state, created once by the composition root and passed down. Open notes refer to its members, so it
/// outlives them and never moves.
struct Program {
    explicit Program(NoteWindowFactory& windows) : openNotes(windows) {}
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    Settings settings;
    OsFacts os;
    std::u16string notesFolder;
    bool startingUp = false;    ///< true until the first command line has been handled
    bool loadingNotes = false;  ///< while the saved notes are being opened
    bool quitting = false;      ///< from the first step of the quit procedure on
    OpenNotes openNotes;        // last: its notes are destroyed before the members that they use
};

}  // namespace quillo
