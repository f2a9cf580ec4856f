#pragma once

#include <string>

namespace quillo {

/// The version of the running program.
struct ProgramVersion {
    int major = 0;
    int minor = 0;
    int revision = 0;
};

/// The version as plain numbers without padding: "4.0.12".
[[nodiscard]] std::u16string VersionNumber(const ProgramVersion& version);
/// The version as the about box shows it.
[[nodiscard]] std::u16string VersionCaption(const ProgramVersion& version);
/// The maker's page that says whether there is a newer version.
[[nodiscard]] std::u16string UpdateAddress(const ProgramVersion& version);

}  // namespace quillo
