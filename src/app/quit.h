#pragma once

namespace quillo {

class LegacyNotes;
class RegistryApi;
struct Program;

/// The quit procedure up to the windows that are no notes: saves every note, clears the old store, takes the program
/// out of those that start with Windows where the settings say so, and unloads the notes. The caller then unloads its
/// forms and ends the process. False, and nothing happens, when the program is quitting already: closing a window can
/// ask for the quit that closes it.
[[nodiscard]] bool SaveAndUnloadNotes(Program& program, LegacyNotes& legacy, RegistryApi& registry);

}  // namespace quillo
