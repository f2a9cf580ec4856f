#include "util/string_builder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <new>
#include <string>

#include "util/class_error.h"

namespace quillo {
namespace {

using namespace std::string_view_literals;
constexpr std::int32_t kHuge = std::numeric_limits<std::int32_t>::max();

CStringBuilder Abc() {
    CStringBuilder builder;
    builder.Append(u"abc");
    return builder;
}

template <typename Action>
std::string ErrorOf(Action action) {
    try {
        action();
    } catch (const ClassError& error) {
        EXPECT_EQ(error.Number(), -2147220992);
        return error.Source() + ": " + error.Description();
    }
    return "none";
}

TEST(StringBuilder, StartsEmpty) {
    const CStringBuilder builder;
    EXPECT_EQ(builder.Length(), 0);
    EXPECT_EQ(builder.Capacity(), 2048);
    EXPECT_EQ(builder.BufferBump(), 2048);
    EXPECT_EQ(builder.ToString(), u"");
}

TEST(StringBuilder, CapacityGrowsByBumps) {
    const struct {
        std::size_t characters;
        std::int32_t capacity;
    } cases[] = {{0, 2048}, {1, 2048}, {1024, 2048}, {1025, 4096}, {2048, 4096}, {2049, 6144}, {100'000, 200'704}};
    for (const auto& c : cases) {
        CStringBuilder builder;
        builder.Append(std::u16string(c.characters, u'x'));
        EXPECT_EQ(builder.Capacity(), c.capacity) << c.characters;
        EXPECT_EQ(builder.ToString(), std::u16string(c.characters, u'x'));
    }
}

TEST(StringBuilder, BumpIsEvenAndPositive) {
    const struct {
        std::int32_t written, stored;
    } cases[] = {{7, 8}, {0, 2048}, {-5, 2048}, {1, 2}, {2, 2}, {4096, 4096}};
    for (const auto& c : cases) {
        CStringBuilder builder;
        builder.SetBufferBump(c.written);
        EXPECT_EQ(builder.BufferBump(), c.stored) << c.written;
        EXPECT_EQ(builder.Capacity(), 2048) << "nothing is reallocated";
    }
    CStringBuilder small;
    small.SetBufferBump(7);
    EXPECT_EQ(small.EnsureCapacity(2049), 2056);
}

TEST(StringBuilder, CapacityIsRoundedUpAndCutsTheText) {
    const struct {
        std::int32_t written, capacity, length;
    } cases[] = {{1, 2048, 1024},        {2048, 2048, 1024}, {2049, 4096, 1500}, {4096, 4096, 1500},
                 {10'000, 10'240, 1500}, {0, 4096, 1500},    {-1, 4096, 1500}};
    for (const auto& c : cases) {
        CStringBuilder builder;
        builder.Append(std::u16string(1500, u'x'));
        builder.SetCapacity(c.written);
        EXPECT_EQ(builder.Capacity(), c.capacity) << c.written;
        EXPECT_EQ(builder.Length(), c.length) << c.written;
        EXPECT_EQ(builder.ToString(), std::u16string(static_cast<std::size_t>(c.length), u'x'));
    }
}

TEST(StringBuilder, EnsureCapacityNeverShrinks) {
    CStringBuilder builder;
    EXPECT_EQ(builder.EnsureCapacity(5000), 6144);
    EXPECT_EQ(builder.EnsureCapacity(1), 6144);
    EXPECT_EQ(builder.EnsureCapacity(-1), 6144);
    EXPECT_EQ(builder.EnsureCapacity(6144), 6144);
}

TEST(StringBuilder, LengthMayBeSet) {
    CStringBuilder builder;
    builder.SetLength(5);
    EXPECT_EQ(builder.ToString(), u"\0\0\0\0\0"sv);
    builder.SetLength(-1);
    EXPECT_EQ(builder.Length(), 5);
    builder.SetLength(1025);
    EXPECT_EQ(builder.Capacity(), 4096);
    CStringBuilder stale = Abc();
    stale.SetLength(1);
    stale.SetLength(3);
    EXPECT_EQ(stale.ToString(), u"abc") << "what was cut is still in the buffer";
}

TEST(StringBuilder, CharsAreCheckedAgainstTheLengthInBytes) {
    const CStringBuilder builder = Abc();
    const struct {
        std::int32_t index;
        std::u16string_view character;
    } cases[] = {{0, u"a"}, {1, u"b"}, {2, u"c"}, {3, u"\0"sv}, {4, u"\0"sv}, {5, u"\0"sv}};
    for (const auto& c : cases) EXPECT_EQ(builder.Chars(c.index), c.character) << c.index;
    for (const std::int32_t index : {6, -1, kHuge, -kHuge - 1}) {
        EXPECT_EQ(ErrorOf([&] { static_cast<void>(builder.Chars(index)); }),
                  "CStringBuilder.Chars: Tried reading character past end of buffer.");
        CStringBuilder target = Abc();
        EXPECT_EQ(ErrorOf([&] { target.SetChars(index, u"x"); }),
                  "CStringBuilder.Chars: Tried assigning character past end of buffer.");
        EXPECT_EQ(target.ToString(), u"abc");
    }
    EXPECT_EQ(ErrorOf([] { static_cast<void>(CStringBuilder().Chars(0)); }),
              "CStringBuilder.Chars: Tried reading character past end of buffer.");
}

TEST(StringBuilder, CharsAreWritten) {
    CStringBuilder builder = Abc();
    builder.SetChars(1, u"xyz");
    EXPECT_EQ(builder.ToString(), u"axc") << "the first code unit only";
    builder.SetChars(5, u"q");
    EXPECT_EQ(builder.ToString(), u"axc");
    EXPECT_EQ(builder.Chars(5), u"q") << "behind the text, within the buffer";
    EXPECT_THROW(builder.SetChars(0, u""), EmptyTextError);
}

TEST(StringBuilder, OutsideTheBufferReadsAsZeroAndWritesNothing) {
    CStringBuilder full;
    full.Append(std::u16string(1024, u'x'));
    ASSERT_EQ(full.Capacity(), 2048);
    full.SetChars(1500, u"q");
    EXPECT_EQ(full.Chars(1500), u"\0"sv);
    EXPECT_EQ(full.Chars(2047), u"\0"sv);
    full.SetLength(2000);
    EXPECT_EQ(full.Chars(1500), u"\0"sv) << "it was not written";
}

TEST(StringBuilder, Inserts) {
    const struct {
        std::int32_t index;
        std::u16string_view text, result;
    } cases[] = {{0, u"x", u"xabc"},      {1, u"xy", u"axybc"},        {3, u"x", u"abcx"},
                 {0, u"", u"abc"},        {1024, u"", u"abc"},         {5, u"x", u"abc\0"sv},
                 {4, u"xy", u"abc\0x"sv}, {1024, u"xy", u"abc\0\0"sv}, {1023, u"xy", u"abc\0\0"sv}};
    for (const auto& c : cases) {
        CStringBuilder builder = Abc();
        builder.Insert(c.index, c.text);
        EXPECT_EQ(builder.ToString(), c.result) << c.index;
        EXPECT_EQ(builder.Capacity(), 2048);
    }
    for (const std::int32_t index : {-1, 1025, kHuge, -kHuge - 1}) {
        CStringBuilder builder = Abc();
        EXPECT_EQ(ErrorOf([&] { builder.Insert(index, u"x"); }), "CStringBuilder.Insert: Argument(s) out of range.");
        EXPECT_EQ(ErrorOf([&] { builder.Insert(index, u""); }), "CStringBuilder.Insert: Argument(s) out of range.");
        EXPECT_EQ(builder.ToString(), u"abc");
    }
}

TEST(StringBuilder, InsertGrows) {
    CStringBuilder builder;
    builder.Append(std::u16string(1024, u'x')).Insert(512, u"yz");
    EXPECT_EQ(builder.Capacity(), 4096);
    EXPECT_EQ(builder.ToString(), std::u16string(512, u'x') + u"yz" + std::u16string(512, u'x'));
}

TEST(StringBuilder, Removes) {
    const struct {
        std::int32_t index, count;
        std::u16string_view result;
    } cases[] = {{1, 1, u"ac"},  {0, 3, u""},   {0, 1, u"bc"}, {2, 1, u"ab"}, {0, 0, u"abc"},
                 {4, 0, u"abc"}, {3, 1, u"ab"}, {2, 2, u"a"},  {1, 3, u""},   {0, 4, u""}};
    for (const auto& c : cases) {
        CStringBuilder builder = Abc();
        builder.Remove(c.index, c.count);
        EXPECT_EQ(builder.ToString(), c.result) << c.index << ", " << c.count;
        EXPECT_EQ(builder.Capacity(), 2048);
    }
    const std::int32_t refused[][2] = {{3, 2}, {5, 0}, {-1, 1}, {1, -1}, {kHuge, kHuge}, {kHuge, 0}, {0, kHuge}};
    for (const auto& [index, count] : refused) {
        CStringBuilder builder = Abc();
        EXPECT_EQ(ErrorOf([&, i = index, n = count] { builder.Remove(i, n); }),
                  "CStringBuilder.Remove: Argument(s) out of range.");
        EXPECT_EQ(builder.ToString(), u"abc");
    }
    CStringBuilder empty;
    empty.Remove(0, 1);
    EXPECT_EQ(empty.Length(), 0) << "never below nothing";
}

TEST(StringBuilder, CallsChain) {
    CStringBuilder builder;
    EXPECT_EQ(&builder.Append(u"").Append(u"ab").Insert(1, u"-").Insert(0, u"").Remove(0, 1), &builder);
    EXPECT_EQ(builder.ToString(), u"-b");
}

TEST(StringBuilder, RefusesSizesThatCannotBeCounted) {
    CStringBuilder builder = Abc();
    EXPECT_THROW(builder.SetLength(kHuge), std::bad_array_new_length);
    EXPECT_THROW(builder.SetCapacity(kHuge), std::bad_array_new_length);
    EXPECT_THROW(builder.SetBufferBump(kHuge), std::bad_array_new_length);
    EXPECT_EQ(builder.ToString(), u"abc");
}

TEST(StringBuilder, ManyAppends) {
    CStringBuilder builder;
    std::u16string expected;
    for (int i = 0; i < 20'000; ++i) {
        const std::u16string piece(static_cast<std::size_t>(i % 17), static_cast<char16_t>(u'a' + i % 26));
        builder.Append(piece);
        expected += piece;
    }
    EXPECT_EQ(builder.ToString(), expected);
    EXPECT_EQ(builder.Capacity() % 2048, 0);
    EXPECT_LT(builder.Capacity() - builder.Length() * 2, 2048) << "the capacity shown stays exact";
}

}  // namespace
}  // namespace quillo
