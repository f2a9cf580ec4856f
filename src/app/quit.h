#pragma once

#include <string>
#include <vector>

#include "notes/note_saver.h"

namespace quillo {

class LegacyNotes;
class OpenNote;
class RegistryApi;
class SaveAll;
class UserNotice;
struct Program;

/// Who ends the program. Only a user who is there can be asked.
enum class QuitReason { User, Command, SessionEnd };

/// The quit procedure up to the windows that are no notes.
class Quit {
  public:
    Quit(Program& program, SaveAll& saveAll, const LegacyNotes& legacy, NoteStore& store, RegistryApi& registry,
         UserNotice& notice)
        : program_(program), saveAll_(saveAll), legacy_(legacy), store_(store), registry_(registry), notice_(notice) {}

    /// Saves every note, or writes those that cannot be saved to other files, clears the old store, takes the program
    /// out of those that start with Windows where the settings say so, and unloads the notes. The caller then unloads
    /// its forms and ends the process. False, and nothing happens, when the user keeps a note that can be saved
    /// nowhere, and when the program is quitting already: closing a window can ask for the quit that closes it.
    [[nodiscard]] bool Run(QuitReason reason);

  private:
    struct Rescued {
        FileVersion file;
        std::u16string record;
    };

    [[nodiscard]] bool RescueNotes(QuitReason reason);
    /// False when no folder takes the note.
    [[nodiscard]] bool Rescue(OpenNote& note);
    void TakeBackRescue();
    void LeaveRunKey();

    Program& program_;
    SaveAll& saveAll_;
    const LegacyNotes& legacy_;
    NoteStore& store_;
    RegistryApi& registry_;
    UserNotice& notice_;
    std::vector<Rescued> rescued_;
};

}  // namespace quillo
