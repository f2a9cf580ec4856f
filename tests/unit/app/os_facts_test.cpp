#include "app/base/os_facts.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

TEST(OsFacts, FollowPlatformAndVersion) {
    struct Case {
        int platform, major, minor;
        bool nt, windows2000, windowsXp;
    };
    const Case cases[] = {
        {2, 10, 0, true, true, true},   {2, 6, 1, true, true, true},     {2, 5, 1, true, true, true},
        {2, 5, 0, true, true, false},   {2, 4, 0, true, false, false},   {1, 4, 10, false, false, false},
        {1, 5, 1, false, false, false}, {0, 10, 0, false, false, false},
    };
    for (const Case& c : cases) {
        const OsFacts facts = MakeOsFacts(c.platform, c.major, c.minor);
        EXPECT_EQ(facts.major, c.major);
        EXPECT_EQ(facts.minor, c.minor);
        EXPECT_EQ(facts.nt, c.nt) << c.platform << " " << c.major << "." << c.minor;
        EXPECT_EQ(facts.windows2000OrLater, c.windows2000) << c.platform << " " << c.major << "." << c.minor;
        EXPECT_EQ(facts.windowsXpOrLater, c.windowsXp) << c.platform << " " << c.major << "." << c.minor;
    }
}

TEST(OsFacts, IntendedAnyMinorVersionCountsAsXp) {
    EXPECT_TRUE(MakeOsFacts(2, 3, 51).windowsXpOrLater);
    EXPECT_FALSE(MakeOsFacts(2, 3, 51).windows2000OrLater);
}

}  // namespace
}  // namespace quillo
