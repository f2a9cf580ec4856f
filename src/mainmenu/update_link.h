#pragma once

#include <string>

namespace quillo {

/// The number of the program that runs.
struct ProgramVersion {
    int major = 0;
    int minor = 0;
    int revision = 0;
};

/// The version as plain numbers, none padded: "4.0.12".
[[nodiscard]] std::u16string VersionNumber(const ProgramVersion& version);
/// What the about box says of it.
[[nodiscard]] std::u16string VersionCaption(const ProgramVersion& version);
/// The maker's page that tells whether there is a newer one.
[[nodiscard]] std::u16string UpdateAddress(const ProgramVersion& version);

}  // namespace quillo
