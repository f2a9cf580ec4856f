#include "util/unicode.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "util/base32.h"
#include "util/content_hash.h"

namespace quillo {
namespace {

TEST(Utf8, EncodesEveryLengthOfSequence) {
    EXPECT_EQ(EncodeUtf8(u"A\u00E9\u20AC\U0001F58B"), "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x96\x8B");
    EXPECT_EQ(EncodeUtf8(std::u16string(u"\xD83D")), "\xED\xA0\xBD") << "a lone surrogate";
}

TEST(Utf8, RestoresEveryText) {
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
        std::u16string text(random() % 30, u'\0');
        for (char16_t& c : text) c = static_cast<char16_t>(random() % 3 == 0 ? 0xD7F0 + random() % 0x820 : random());
        ASSERT_EQ(DecodeUtf8(EncodeUtf8(text), LoneSurrogates::Accept), text);
    }
}

TEST(Utf8, RefusesMalformedBytes) {
    for (const char* bytes : {"\x80", "\xC3", "\xC0\xAF", "\xC1\xBF", "\xE0\x80\x80", "\xE2\x82", "\xF0\x80\x80\x80",
                              "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "a\xC3z"}) {
        EXPECT_FALSE(DecodeUtf8(bytes, LoneSurrogates::Accept).has_value()) << bytes;
    }
    EXPECT_FALSE(DecodeUtf8("\xED\xA0\xBD", LoneSurrogates::Refuse).has_value());
    EXPECT_EQ(DecodeUtf8("\xED\xA0\xBD", LoneSurrogates::Accept), u"\xD83D");
    EXPECT_EQ(DecodeUtf8("", LoneSurrogates::Refuse), u"");
}

TEST(Utf16, IsReadInBothByteOrders) {
    EXPECT_EQ(DecodeUtf16("A\x04\x16\x04", ByteOrder::LittleEndian), u"\u0441\u0416");
    EXPECT_EQ(DecodeUtf16("\x04\x16z", ByteOrder::BigEndian), u"\u0416") << "an odd byte is dropped";
}

TEST(CutText, NeverHalvesACharacter) {
    EXPECT_EQ(CutText(u"abc", 3), u"abc");
    EXPECT_EQ(CutText(u"abc", 2), u"ab");
    EXPECT_EQ(CutText(u"a\U0001F600", 2), u"a");
    EXPECT_EQ(CutText(u"a\U0001F600", 3), u"a\U0001F600");
    EXPECT_EQ(CutText(u"abc", 0), u"");
}

TEST(Base32, MatchesThePublishedExamples) {
    const struct {
        const char *bytes, *text;
    } cases[] = {{"", ""},
                 {"f", "my"},
                 {"fo", "mzxq"},
                 {"foo", "mzxw6"},
                 {"foob", "mzxw6yq"},
                 {"fooba", "mzxw6ytb"},
                 {"foobar", "mzxw6ytboi"}};
    for (const auto& c : cases) {
        EXPECT_EQ(EncodeBase32(c.bytes), c.text);
        EXPECT_EQ(DecodeBase32(c.text), c.bytes);
    }
    EXPECT_EQ(DecodeBase32("MZXW6YTB"), "fooba") << "letters count in any case";
}

TEST(Base32, RefusesInvalidText) {
    for (const char* text : {"1", "my=", "m", "mz1q", "mzxw6ytbo", "mz", "a b"}) {
        EXPECT_FALSE(DecodeBase32(text).has_value()) << text;
    }
}

TEST(ContentHash, IsThePublishedFunction) {
    EXPECT_EQ(ContentHash(""), 0xcbf29ce484222325U);
    EXPECT_EQ(ContentHash("a"), 0xaf63dc4c8601ec8cU);
    EXPECT_EQ(ContentHash("foobar"), 0x85944171f73967e8U);
}

}  // namespace
}  // namespace quillo
