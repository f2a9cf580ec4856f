#include "app/quit.h"

#include "app/legacy_import.h"
#include "app/program.h"
#include "app/registry_keys.h"
#include "registry/tessel_registry.h"

namespace quillo {

bool SaveAndUnloadNotes(Program& program, LegacyNotes& legacy, RegistryApi& registry) {
    if (program.quitting) return false;
    program.quitting = true;
    legacy.SaveAllNotesAndClear();
    TesselRegistry key(registry, kUserKey);
    if (key.ValueLong(u"Startup Mode") >= 1 && program.openNotes.Count() == 0) {
        key.SetRootPath(kRunKey);
        key.DeleteValue(kRunValue);
    }
    program.openNotes.UnloadAll();
    return true;
}

}  // namespace quillo
