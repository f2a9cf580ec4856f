#include "util/path_text.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

TEST(PathText, StripQuotes) {
    EXPECT_EQ(StripQuotes(u"\"C:\\a b.qln\""), u"C:\\a b.qln");
    EXPECT_EQ(StripQuotes(u"\"C:\\a"), u"C:\\a");
    EXPECT_EQ(StripQuotes(u"C:\\a\""), u"C:\\a");
    EXPECT_EQ(StripQuotes(u"C:\\a"), u"C:\\a");
    EXPECT_EQ(StripQuotes(u"\"\"C:\\a\"\""), u"\"C:\\a\"");
    EXPECT_EQ(StripQuotes(u"\""), u"");
    EXPECT_EQ(StripQuotes(u"\"\""), u"");
    EXPECT_EQ(StripQuotes(u""), u"");
}

TEST(PathText, PartsOfAPath) {
    EXPECT_EQ(FileNameOfPath(u"C:\\a\\b.qln"), u"b.qln");
    EXPECT_EQ(FileNameOfPath(u"b.qln"), u"b.qln");
    EXPECT_EQ(FileNameOfPath(u"C:\\a\\"), u"");
    EXPECT_EQ(FolderOfPath(u"C:\\a\\b.qln"), u"C:\\a");
    EXPECT_EQ(FolderOfPath(u"b.qln"), u"");
    EXPECT_EQ(JoinPath(u"C:\\a", u"b"), u"C:\\a\\b");
    EXPECT_EQ(JoinPath(u"C:\\", u"b"), u"C:\\b");
    EXPECT_EQ(NameWithoutExtension(u"\"Shopping.list.txt\""), u"Shopping.list");
    EXPECT_EQ(NameWithoutExtension(u"Shopping"), u"Shopping");
    EXPECT_EQ(NameWithoutExtension(u".qln"), u"");
}

}  // namespace
}  // namespace quillo
