#include "mainmenu/update_link.h"

#include <gtest/gtest.h>

#include "app/base/app_identity.h"

namespace quillo {
namespace {

TEST(UpdateLink, NumbersAreNotPadded) {
    EXPECT_EQ(VersionCaption({4, 0, 12}), u"Version 4.0.12");
    EXPECT_EQ(VersionCaption({4, 0, 5}), u"Version 4.0.5");
    EXPECT_EQ(VersionNumber({10, 20, 3000}), u"10.20.3000");
}

TEST(UpdateLink, TheMakersPageGetsTheVersion) {
    const std::u16string site = u"http://" + std::u16string(kMakerHost);
    EXPECT_EQ(MakerAddress(), site);
    EXPECT_EQ(UpdateAddress({4, 0, 5}), site + u"/quillo/?Version=4.0.5");
    EXPECT_EQ(UpdateAddress({4, 0, 12}), site + u"/quillo/?Version=4.0.12");
}

TEST(UpdateLink, TheSiteHasAReservedName) {
    const std::u16string_view reserved = u".example";
    ASSERT_GT(kMakerHost.size(), reserved.size());
    EXPECT_EQ(kMakerHost.substr(kMakerHost.size() - reserved.size()), reserved);
}

}  // namespace
}  // namespace quillo
