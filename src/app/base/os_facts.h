#pragma once

namespace quillo {

/// The facts about the system that the program depends on.
struct OsFacts {
    int major = 10;
    int minor = 0;
    bool nt = true;
    bool windows2000OrLater = true;
    bool windowsXpOrLater = true;
};

/// `platformId` is the system's number for its platform; 2 is NT.
[[nodiscard]] OsFacts MakeOsFacts(int platformId, int major, int minor);

}  // namespace quillo
