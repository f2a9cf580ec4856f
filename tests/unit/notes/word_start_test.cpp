#include "notes/word_start.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

TEST(WordStart, IsThatOfTheWordBefore) {
    const struct {
        std::u16string_view text;
        std::size_t place;
        std::size_t start;
    } cases[] = {
        {u"", 0, 0},
        {u"word", 0, 0},
        {u"word", 4, 0},
        {u"word", 2, 0},
        {u"two words", 9, 4},
        {u"two   ", 6, 0},
        {u"   ", 3, 0},
        {u"a, b", 2, 1},
        {u"a--", 3, 1},
        {u"first\r\nsecond", 13, 7},
        {u"first\r\n", 7, 5},
        {u"first\r\n  ", 9, 7},
        {u"first\n", 6, 5},
        {u"caf\u00E9 \u65E5\u672C", 7, 5},
        {u"x \U0001F600", 4, 2},
        {u"short", 99, 0},
    };
    for (const auto& c : cases) EXPECT_EQ(WordStartBefore(c.text, c.place), c.start) << c.place;
}

}  // namespace
}  // namespace quillo
