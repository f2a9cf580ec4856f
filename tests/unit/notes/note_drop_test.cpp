#include "notes/note_drop.h"

#include <gtest/gtest.h>

#include "testing/fake_locale_text.h"
#include "testing/fake_shell.h"

namespace quillo {
namespace {

TEST(ChooseDropFormat, LinksBeforeTextBeforeFiles) {
    const struct {
        DropOffer offer;
        DropFormat format;
    } cases[] = {
        {{true, true, true}, DropFormat::Link},    {{true, false, false}, DropFormat::Link},
        {{false, true, true}, DropFormat::Text},   {{false, true, false}, DropFormat::Text},
        {{false, false, true}, DropFormat::Files}, {{false, false, false}, DropFormat::None},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ChooseDropFormat(c.offer, true), c.format);
        EXPECT_EQ(ChooseDropFormat(c.offer, false), DropFormat::None) << "drag and drop is off";
    }
}

TEST(DroppedLink, IsReadUpToItsNul) {
    FakeLocaleText locale;
    using namespace std::string_view_literals;
    EXPECT_EQ(TextOfDroppedLink("http://example.org/\0rest"sv, locale), u"http://example.org/");
    EXPECT_EQ(TextOfDroppedLink("http://example.org/", locale), u"http://example.org/");
    EXPECT_EQ(TextOfDroppedLink("caf\xE9", locale), u"caf\u00E9") << "in the code page";
    EXPECT_EQ(TextOfDroppedLink("\0"sv, locale), u"");
    EXPECT_EQ(TextOfDroppedLink("", locale), u"");
}

TEST(DroppedText, IsInsertedUnchanged) {
    using namespace std::string_view_literals;
    EXPECT_EQ(TextOfDroppedText(u" one\r\ntwo\n "), u" one\r\ntwo\n ");
    EXPECT_EQ(TextOfDroppedText(u"one\0two"sv), u"one");
    EXPECT_EQ(TextOfDroppedText(u""), u"");
}

TEST(DroppedFiles, OneLineEach) {
    FakeShell shell;
    EXPECT_EQ(TextOfDroppedFiles({}, shell), u"");
    EXPECT_EQ(TextOfDroppedFiles({u"C:\\a.txt"}, shell), u"C:\\a.txt\r\n");
    EXPECT_EQ(TextOfDroppedFiles({u"C:\\a.txt", u"D:\\\u0416\\b"}, shell), u"C:\\a.txt\r\nD:\\\u0416\\b\r\n");
}

TEST(DroppedFiles, ShortcutsBecomeTheirTargets) {
    FakeShell shell;
    shell.linkTargets[u"C:\\Notes.LNK"] = u"C:\\Folder\\Real.txt";
    EXPECT_EQ(TextOfDroppedFiles({u"C:\\Notes.LNK", u"C:\\b.txt"}, shell), u"C:\\Folder\\Real.txt\r\nC:\\b.txt\r\n");
    EXPECT_EQ(TextOfDroppedFiles({u"C:\\broken.lnk"}, shell), u"C:\\broken.lnk\r\n");
}

}  // namespace
}  // namespace quillo
