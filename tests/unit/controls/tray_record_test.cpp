#include "controls/tray_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "testing/fake_locale_text.h"
#include "tray_fakes.h"

namespace quillo {
namespace {

using Record32 = TrayRecordOf<std::uint32_t>;
using Record64 = TrayRecordOf<std::uint64_t>;

/// The bytes of a record as the shell reads them.
template <typename Record>
class Bytes {
  public:
    explicit Bytes(const Record& record) { std::memcpy(bytes_.data(), &record, sizeof record); }

    [[nodiscard]] std::uint64_t Number(std::size_t at, std::size_t width = 4) const {
        std::uint64_t value = 0;
        for (std::size_t i = width; i > 0; --i) value = value << 8 | bytes_[at + i - 1];
        return value;
    }
    [[nodiscard]] std::string Text(std::size_t at, std::size_t width) const {
        return {reinterpret_cast<const char*>(bytes_.data()) + at, width};
    }
    [[nodiscard]] static constexpr std::size_t Size() { return sizeof(Record); }

  private:
    std::array<unsigned char, sizeof(Record)> bytes_{};
};

std::string Padded(std::string text, std::size_t width) {
    text.resize(width, '\0');
    return text;
}

TEST(TrayRecordTest, TheFieldsOfThe32BitRecordHaveTheirOffsets) {
    DoubleByteText locale;
    Record32 record{};
    FillForAdding<std::uint32_t>(record, 0x11223344, 0x55667788);
    WriteTip(record, u"Milk", locale);
    const Bytes<Record32> added(record);
    EXPECT_EQ(added.Size(), 488u);
    EXPECT_EQ(added.Number(0), 488u);
    EXPECT_EQ(added.Number(4), 0x11223344u);
    EXPECT_EQ(added.Number(8), 1u);
    EXPECT_EQ(added.Number(12), 7u);
    EXPECT_EQ(added.Number(16), 512u);
    EXPECT_EQ(added.Number(20), 0x55667788u);
    EXPECT_EQ(added.Text(24, 128), Padded("Milk", 128));
    EXPECT_EQ(added.Number(152), 0u);
    EXPECT_EQ(added.Number(156), 0u);
    EXPECT_EQ(added.Text(160, 256), Padded("", 256));
    EXPECT_EQ(added.Number(416), 5u);
    EXPECT_EQ(added.Text(420, 64), Padded("", 64));
    EXPECT_EQ(added.Number(484), 0u);

    WriteBalloon(record, u"Text", u"Title", 2, 30, locale);
    const Bytes<Record32> balloon(record);
    EXPECT_EQ(balloon.Text(24, 128), Padded("Milk", 128));
    EXPECT_EQ(balloon.Text(160, 256), Padded("Text", 256));
    EXPECT_EQ(balloon.Number(416), 30u);
    EXPECT_EQ(balloon.Text(420, 64), Padded("Title", 64));
    EXPECT_EQ(balloon.Number(484), 2u);
}

TEST(TrayRecordTest, TheFieldsOfThe64BitRecordHaveTheirOffsets) {
    DoubleByteText locale;
    Record64 record{};
    FillForAdding<std::uint64_t>(record, 0x1122334455667788, 0x99AABBCCDDEEFF00);
    WriteTip(record, u"Milk", locale);
    WriteBalloon(record, u"Text", u"Title", 2, 30, locale);
    const Bytes<Record64> bytes(record);
    EXPECT_EQ(bytes.Size(), 504u);
    EXPECT_EQ(bytes.Number(0), 504u);
    EXPECT_EQ(bytes.Number(8, 8), 0x1122334455667788u);
    EXPECT_EQ(bytes.Number(16), 1u);
    EXPECT_EQ(bytes.Number(20), 7u);
    EXPECT_EQ(bytes.Number(24), 512u);
    EXPECT_EQ(bytes.Number(32, 8), 0x99AABBCCDDEEFF00u);
    EXPECT_EQ(bytes.Text(40, 128), Padded("Milk", 128));
    EXPECT_EQ(bytes.Number(168), 0u);
    EXPECT_EQ(bytes.Number(172), 0u);
    EXPECT_EQ(bytes.Text(176, 256), Padded("Text", 256));
    EXPECT_EQ(bytes.Number(432), 30u);
    EXPECT_EQ(bytes.Text(436, 64), Padded("Title", 64));
    EXPECT_EQ(bytes.Number(500), 2u);
}

TEST(TrayRecordTest, LongTextsAreCutToTheirFirstCharacters) {
    DoubleByteText locale;
    TrayRecord record{};
    WriteTip(record, std::u16string(63, u'a') + u"bcdefgh", locale);
    WriteBalloon(record, std::u16string(255, u'c') + u"d", std::u16string(63, u'e') + u"f", 0, 10, locale);
    EXPECT_STREQ(record.tip, std::string(63, 'a').c_str());
    EXPECT_STREQ(record.info, std::string(255, 'c').c_str());
    EXPECT_STREQ(record.infoTitle, std::string(63, 'e').c_str());
}

TEST(TrayRecordTest, TheSecondHalfOfTheTipIsNeverWritten) {
    DoubleByteText locale;
    TrayRecord record{};
    std::memset(record.tip, '#', sizeof record.tip);
    WriteTip(record, std::u16string(200, u'a'), locale);
    EXPECT_EQ(std::string(record.tip + 64, 64), std::string(64, '#'));
    EXPECT_EQ(record.tip[63], '\0');
}

TEST(TrayRecordTest, AShorterTextErasesTheLongerOne) {
    DoubleByteText locale;
    TrayRecord record{};
    WriteTip(record, u"Shopping list", locale);
    WriteTip(record, u"Tea", locale);
    EXPECT_EQ(std::string(record.tip, 64), Padded("Tea", 64));
}

TEST(TrayRecordTest, ACharacterOfTwoBytesIsKeptWholeOrDropped) {
    DoubleByteText locale;
    TrayRecord record{};
    // 63 characters of two bytes would need 126 bytes: 31 fit in 63 bytes, and the odd byte stays unused.
    WriteTip(record, std::u16string(70, u'\u30C6'), locale);
    std::string expected;
    for (int i = 0; i < 31; ++i)
        expected +=
            "\x83"
            "A";
    EXPECT_EQ(std::string(record.tip, 64), Padded(expected, 64));

    // With one byte before them, they fill the field exactly.
    WriteTip(record, u"x" + std::u16string(70, u'\u30C6'), locale);
    EXPECT_EQ(std::string(record.tip, 64), "x" + expected + std::string(1, '\0'));

    WriteBalloon(record, std::u16string(255, u'\u30C6'), std::u16string(63, u'\u30C6'), 0, 10, locale);
    EXPECT_EQ(std::strlen(record.info), 254u);
    EXPECT_EQ(record.info[255], '\0');
    EXPECT_EQ(std::strlen(record.infoTitle), 62u);
    EXPECT_EQ(record.infoTitle[63], '\0');
}

TEST(TrayRecordTest, IntendedTheFirst63CharactersCanEndWithinASurrogatePair) {
    FakeLocaleText locale;
    TrayRecord record{};
    WriteTip(record, std::u16string(62, u'a') + u"\U0001F4DD" + u"b", locale);
    EXPECT_STREQ(record.tip, (std::string(62, 'a') + "?").c_str());
}

TEST(TrayRecordTest, ASurrogatePairThatNeedsTooManyBytesIsDroppedWhole) {
    DoubleByteText locale;
    TrayRecord record{};
    WriteTip(record, std::u16string(62, u'a') + u"\U0001F4DD" + u"b", locale);
    EXPECT_STREQ(record.tip, std::string(62, 'a').c_str());
    // 60 bytes, then a pair of two bytes and another one.
    WriteTip(record, std::u16string(60, u'a') + u"\U0001F4DD\U0001F4DD", locale);
    EXPECT_STREQ(record.tip, (std::string(60, 'a') + "\x83" + "A").c_str());
}

TEST(TrayRecordTest, EmptyTextsAreEmpty) {
    DoubleByteText locale;
    TrayRecord record{};
    WriteTip(record, u"Tea", locale);
    WriteTip(record, u"", locale);
    WriteBalloon(record, u"", u"", 0, 10, locale);
    EXPECT_STREQ(record.tip, "");
    EXPECT_STREQ(record.info, "");
    EXPECT_STREQ(record.infoTitle, "");
}

}  // namespace
}  // namespace quillo
