#include "mainmenu/update_link.h"

#include "app/base/app_identity.h"
#include "util/numbers.h"

namespace quillo {

std::u16string VersionNumber(const ProgramVersion& version) {
    return FormatInteger(version.major) + u"." + FormatInteger(version.minor) + u"." + FormatInteger(version.revision);
}

std::u16string VersionCaption(const ProgramVersion& version) {
    return u"Version " + VersionNumber(version);
}

std::u16string UpdateAddress(const ProgramVersion& version) {
    return MakerAddress() + u"/quillo/?Version=" + VersionNumber(version);
}

}  // namespace quillo
