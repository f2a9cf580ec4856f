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

/// Who ends the program. Only a user who is present can be asked.
enum class QuitReason { User, Command, SessionEnd };

/// The quit procedure up to the windows that are not notes.
class Quit {
  public:
    Quit(Program& program, SaveAll& saveAll, const LegacyNotes& legacy, NoteStore& store, RegistryApi& registry,
         UserNotice& notice)
        : program_(program), saveAll_(saveAll), legacy_(legacy), store_(store), registry_(registry), notice_(notice) {}

    /// Saves every note, or writes those that cannot be saved to other files; clears the old store; deletes the value
    /// that starts the program with Windows if the settings require it; and unloads the notes. The caller then unloads
    /// its forms and ends the process. False, with no effect, if the user keeps a note that cannot be saved anywhere,
    /// or if the program is quitting already: closing a window can request the quit that closes it.
    [[nodiscard]] bool Run(QuitReason reason);

  private:
    struct Rescued {
        FileVersion file;
        std::u16string record;
    };

    [[nodiscard]] bool RescueNotes(QuitReason reason);
    [[nodiscard]] bool NeedsRescue(OpenNote& note) const;
    /// False if no folder accepts the note.
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
