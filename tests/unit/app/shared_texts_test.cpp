#include "app/base/shared_texts.h"

#include <gtest/gtest.h>

#include "testing/fake_locale_text.h"

namespace quillo {
namespace {

TEST(SharedTexts, TimeStampIsTheGeneralDateAndAnEmptyLine) {
    FakeLocaleText locale;
    EXPECT_EQ(TimeStampText(ToDaySerial({2026, 11, 21, 9, 30, 5}), locale), u"(11/21/2026 9:30:05 AM)\r\n\r\n");
    EXPECT_EQ(TimeStampText(ToDaySerial({2026, 11, 21, 0, 0, 0}), locale), u"(11/21/2026)\r\n\r\n");
}

TEST(SharedTexts, KeysFrom33To90AreNamedByTheirCharacter) {
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
