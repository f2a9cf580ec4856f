#include "app/base/os_facts.h"

namespace quillo {

OsFacts MakeOsFacts(int platformId, int major, int minor) {
    constexpr int kPlatformNt = 2;
    OsFacts facts;
    facts.major = major;
    facts.minor = minor;
    facts.nt = platformId == kPlatformNt;
    facts.windows2000OrLater = facts.nt && major >= 5;
    // Intended: any minor version above 0 counts, so that 3.51 and 4.10 do as well.
    facts.windowsXpOrLater = facts.nt && (major > 5 || minor >= 1);
    return facts;
}

}  // namespace quillo
