#include "notes/note_title.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

TEST(NoteTitle, IsTheFirstWords) {
    const std::u16string x58(58, u'x');
    const struct {
        std::u16string text;
        std::u16string title;
    } cases[] = {
        {u"", u"Quillo"},
        {u" \r\n\t ", u"Quillo"},
        {u"Buy milk", u"Buy milk"},
        {u"\r\n  Buy milk  \r\nand bread", u"Buy milk"},
        {u"one\ntwo", u"one"},
        {std::u16string(60, u'x'), std::u16string(60, u'x')},
        {std::u16string(61, u'x'), std::u16string(60, u'x') + u"..."},
        {x58 + u" y", x58 + u" y"},
        {x58 + u" yy", x58 + u"..."},
        {x58 + u"x \U0001F600", x58 + u"x..."},
        {x58 + u"x\U0001F600 and so on", x58 + u"x..."},
        {std::u16string(1000, u'x'), std::u16string(60, u'x') + u"..."},
        {std::u16string(1000, u' ') + u"far away", u"Quillo"},
    };
    for (const auto& c : cases) EXPECT_EQ(NoteTitle(c.text), c.title);
}

}  // namespace
}  // namespace quillo
