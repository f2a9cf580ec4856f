#pragma once

#include <string>

#include "app/base/settings.h"
#include "ports/registry_api.h"

namespace quillo::qln {

/// Below the first of the user's folders that the program accepts: "\Marrowind\Notes".
inline constexpr std::u16string_view kNotesBelow = u"\\Marrowind\\Notes";

/// Creates the notes folder if it is missing, as the program does when it starts; at most its last two parts.
void PrepareFolder(const std::string& folder);

/// The user's settings, and every stored one as a line "name=value".
struct StoredSettings {
    Settings settings;
    std::string lines;
    bool useRoamingProfile = false;
};
[[nodiscard]] StoredSettings ReadSettings(RegistryApi& api);

/// A version 4 GUID in its registry form, of 16 random bytes.
[[nodiscard]] std::string MakeGuid();

}  // namespace quillo::qln
