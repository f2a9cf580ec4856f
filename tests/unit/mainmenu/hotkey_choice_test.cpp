#include "mainmenu/hotkey_choice.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

TEST(HotkeyChoice, KeysFrom33To90AreNamedByTheirCharacter) {
    struct Case {
        int key;
        std::u16string_view name;
    };
    const Case cases[] = {{65, u"A"},        {90, u"Z"},          {48, u"0"},      {33, u"!"},       {32, u"Key # 32"},
                          {91, u"Key # 91"}, {112, u"Key # 112"}, {0, u"Key # 0"}, {-1, u"Key # -1"}};
    for (const Case& c : cases) EXPECT_EQ(KeyName(c.key), c.name) << c.key;
}

}  // namespace
}  // namespace quillo
