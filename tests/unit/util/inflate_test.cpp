#include "util/inflate.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "util/coverage_planes.h"

namespace quillo {
namespace {

using Bytes = std::vector<std::uint8_t>;

// The output of another implementation for "Quillo", kSentence and Pattern(): a stored block, one with the fixed codes,
// one with its own codes.
const Bytes kStored{1, 6, 0, 249, 255, 81, 117, 105, 108, 108, 111};
const Bytes kFixed{203, 203, 47, 73, 85, 200, 67, 33, 116, 20, 18, 243, 82, 20, 18, 193, 108, 0};
const Bytes kDynamic{
    37,  209, 71,  150, 196, 32,  12,  69,  81,  37,  12,  38,  39,  179, 255, 165, 118, 245, 103, 170, 163, 129, 174,
    30,  177, 189, 93,  138, 204, 28,  158, 39,  216, 116, 205, 102, 98,  53,  23,  202, 214, 245, 242, 238, 149, 230,
    113, 77,  170, 208, 28,  125, 28,  75,  39,  202, 40,  236, 223, 52,  40,  106, 146, 221, 106, 161, 79,  243, 151,
    84,  106, 140, 185, 110, 43,  210, 189, 28,  222, 228, 226, 242, 154, 141, 190, 143, 40,  116, 109, 207, 145, 156,
    114, 219, 102, 92,  31,  90,  131, 23,  61,  149, 139, 238, 246, 63,  166, 167, 105, 15,  34,  191, 109, 203, 219,
    86,  116, 180, 23,  139, 255, 221, 231, 180, 230, 24,  235, 164, 244, 101, 253, 186, 212, 182, 37,  109, 163, 145,
    94,  255, 242, 144, 120, 146, 233, 239, 188, 73,  158, 164, 185, 51,  171, 244, 205, 239, 10,  86,  130, 51,  125,
    120, 90,  115, 51,  235, 207, 152, 167, 146, 244, 215, 152, 4,   116, 53,  208, 51,  131, 254, 92,  122, 32,  208,
    171, 128, 238, 237, 210, 25,  244, 87,  65,  223, 4,   122, 23,  208, 167, 129, 238, 24,  244, 165, 160, 111, 2,
    93,  4,   244, 102, 160, 151, 75,  31,  10,  186, 17,  232, 71,  64,  39,  3,   221, 51,  232, 71,  65,  223, 4,
    186, 10,  232, 197, 64,  143, 12,  122, 81,  208, 15,  129, 94,  47,  189, 26,  232, 155, 65,  79,  10,  122, 32,
    208, 203, 165, 223, 234, 58,  57,  220, 143, 92,  58,  129, 190, 4,   244, 105, 160, 19,  223, 234, 10,  186, 39,
    208, 111, 245, 254, 25,  232, 149, 65,  47,  10,  250, 173, 254, 7};

Bytes AsBytes(std::string_view text) {
    return {text.begin(), text.end()};
}

Bytes Sentence() {
    return AsBytes("note note note note, and a note");
}

Bytes Pattern() {
    Bytes bytes;
    for (int i = 0; i < 600; ++i) bytes.push_back(static_cast<std::uint8_t>((i % 7 != 0 ? i * i % 251 : i % 5) % 23));
    return bytes;
}

/// The output for that expected size; empty if it is refused.
Bytes Inflated(const Bytes& packed, std::size_t size) {
    Bytes plain(size);
    return Inflate(packed, plain) ? plain : Bytes{};
}

TEST(Inflate, ReadsEachKindOfBlock) {
    EXPECT_EQ(Inflated(kStored, 6), AsBytes("Quillo"));
    EXPECT_EQ(Inflated(kFixed, Sentence().size()), Sentence());
    EXPECT_EQ(Inflated(kDynamic, Pattern().size()), Pattern());
}

TEST(Inflate, AStreamMayHaveSeveralBlocksAndEmptyOnes) {
    Bytes packed{0, 0, 0, 0xFF, 0xFF};  // an empty stored block that is not the last one
    packed.insert(packed.end(), kStored.begin(), kStored.end());
    EXPECT_EQ(Inflated(packed, 6), AsBytes("Quillo"));
}

TEST(Inflate, AcceptsOnlyThePackedLength) {
    for (const std::size_t wrong : {0U, 1U, 5U, 7U, 100U}) {
        Bytes plain(wrong);
        EXPECT_FALSE(Inflate(kStored, plain)) << wrong;
    }
    for (const std::size_t wrong : {0U, 30U, 32U}) {
        Bytes plain(wrong);
        EXPECT_FALSE(Inflate(kFixed, plain)) << wrong;
    }
}

TEST(Inflate, RefusesATruncatedStreamAndTrailingBytes) {
    for (const Bytes* whole : {&kStored, &kFixed, &kDynamic}) {
        const std::size_t size = whole == &kStored ? 6 : whole == &kFixed ? Sentence().size() : Pattern().size();
        ASSERT_EQ(Inflated(*whole, size).size(), size);
        for (std::size_t length = 0; length < whole->size(); ++length) {
            EXPECT_TRUE(
                Inflated(Bytes(whole->begin(), whole->begin() + static_cast<std::ptrdiff_t>(length)), size).empty())
                << length;
        }
        Bytes longer = *whole;
        longer.push_back(0);
        EXPECT_TRUE(Inflated(longer, size).empty());
    }
}

TEST(Inflate, RefusesDamage) {
    EXPECT_TRUE(Inflated({7, 0, 0}, 1).empty());                 // the undefined kind of block
    EXPECT_TRUE(Inflated({1, 1, 0, 0xFF, 0xFF, 9}, 1).empty());  // a stored length that its complement contradicts
    EXPECT_TRUE(Inflated({3, 2, 0}, 3).empty());                 // repeats bytes from before the start
    EXPECT_TRUE(Inflated({0xFD, 0xFF, 0xFF}, 3).empty());        // more codes than the format allows
}

Bytes WithHead(std::uint8_t width, std::uint8_t height, std::uint8_t count, const Bytes& packed) {
    Bytes bytes{width, 0, height, 0, count, 0};
    bytes.insert(bytes.end(), packed.begin(), packed.end());
    return bytes;
}

TEST(CoveragePlanes, AreReadOneAfterAnother) {
    const CoveragePlanes read = ReadPlanes(WithHead(3, 1, 2, kStored), 2);
    EXPECT_EQ(read.size, (Size{3, 1}));
    ASSERT_EQ(read.planes.size(), 2U);
    EXPECT_EQ(read.planes[0], AsBytes("Qui"));
    EXPECT_EQ(read.planes[1], AsBytes("llo"));
}

TEST(CoveragePlanes, AreRefusedWhenDamaged) {
    const Bytes good = WithHead(3, 1, 2, kStored);
    for (std::size_t length = 0; length < good.size(); ++length) {
        EXPECT_TRUE(ReadPlanes(std::span(good).first(length), 2).planes.empty()) << length;
    }
    EXPECT_TRUE(ReadPlanes(good, 3).planes.empty());
    EXPECT_TRUE(ReadPlanes(WithHead(0, 1, 2, kStored), 2).planes.empty());
    EXPECT_TRUE(ReadPlanes(WithHead(2, 1, 2, kStored), 2).planes.empty());
    Bytes wide = good;
    wide[1] = 0xFF;  // wider than any screen
    EXPECT_TRUE(ReadPlanes(wide, 2).planes.empty());
}

TEST(CoveragePlanes, ResizingKeepsTheMeans) {
    const CoveragePlanes drawn{Size{4, 2}, {{0, 100, 200, 200, 100, 200, 200, 200}, {8, 8, 8, 8, 8, 8, 8, 8}}};
    const CoveragePlanes half = ResizePlanes(drawn, Size{2, 1});
    EXPECT_EQ(half.size, (Size{2, 1}));
    EXPECT_EQ(half.planes, (std::vector<CoveragePlane>{{100, 200}, {8, 8}}));
    const CoveragePlanes twice = ResizePlanes(drawn, Size{8, 4});
    ASSERT_EQ(twice.planes.size(), 2U);
    EXPECT_EQ(twice.planes[0][0], 0);
    EXPECT_EQ(twice.planes[0][2 + 8], 100);
    EXPECT_EQ(ResizePlanes(drawn, drawn.size).planes, drawn.planes);
    EXPECT_EQ(ResizePlanes({}, Size{8, 4}).size, (Size{0, 0})) << "a drawing that cannot be read stays empty";
}

}  // namespace
}  // namespace quillo
