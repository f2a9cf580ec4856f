#include "controls/swatch_palette.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

#include "ports/random.h"

namespace quillo {
namespace {

class FixedRandom : public Random {
  public:
    explicit FixedRandom(double number) : number_(number) {}
    double Next() override {
        ++draws;
        return number_;
    }
    int draws = 0;

  private:
    double number_;
};

TEST(SwatchPalette, ColorWordsHaveRedInTheLowByte) {
    EXPECT_EQ(kSwatches[0].note.Number(), 0xD0FDFF);
    EXPECT_EQ(kSwatches[0].border.Number(), 3723262);
    EXPECT_EQ(kSwatches[8].text.Number(), 0x00FEFE);
}

TEST(SwatchPalette, RandomSchemeChoosesEachPaleSchemeInAFifthOfTheRange) {
    const struct {
        double number;
        std::size_t index;
    } cases[] = {{0.0, 0}, {0.1999, 0}, {0.2, 1}, {0.3999, 1}, {0.4, 2},
                 {0.6, 3}, {0.7999, 3}, {0.8, 4}, {0.9999, 4}, {std::nextafter(1.0, 0.0), 4}};
    for (const auto& c : cases) {
        FixedRandom random(c.number);
        EXPECT_EQ(RandomScheme(random), kSwatches[c.index]) << c.number;
        EXPECT_EQ(random.draws, 1);
    }
}

class MersenneRandom : public Random {
  public:
    double Next() override { return std::uniform_real_distribution<double>(0, 1)(engine_); }

  private:
    std::mt19937 engine_{20260101};
};

TEST(SwatchPalette, RandomSchemeIsEvenAndNeverDark) {
    constexpr int kDeals = 50'000;
    MersenneRandom random;
    std::map<std::uint32_t, int> dealt;
    for (int i = 0; i < kDeals; ++i) ++dealt[RandomScheme(random).note.value];

    ASSERT_EQ(dealt.size(), static_cast<std::size_t>(kRandomSwatches));
    for (std::size_t i = 0; i < static_cast<std::size_t>(kRandomSwatches); ++i) {
        EXPECT_NEAR(dealt[kSwatches[i].note.value], kDeals / kRandomSwatches, 500);
    }
}

TEST(SwatchPalette, IsThePaletteOfTheDesign) {
    struct Row {
        int note;
        int border;
        int text;
    };
    constexpr Row kDesign[] = {{0xFFFDD0, 0xFECF38, 0}, {0xE0EEF4, 0x7BA9D3, 0},        {0xE9FDEC, 0x72AE7F, 0},
                               {0xF3E2FF, 0xBBA9DB, 0}, {0xFEE6DC, 0xFE8460, 0},        {0xFCFCFC, 0xB3C4D2, 0},
                               {0xFFF850, 0xFF8D00, 0}, {0xA71D23, 0xFFFFFF, 0xFFFFFF}, {0, 0xFEFE00, 0xFEFE00},
                               {0, 0xB4FE2C, 0xB4FE2C}, {0, 0x10EFFE, 0x10EFFE}};
    const auto rgb = [](ColorWord color) { return color.Red() << 16 | color.Green() << 8 | color.Blue(); };
    ASSERT_EQ(kSwatches.size(), std::size(kDesign));
    for (std::size_t i = 0; i < kSwatches.size(); ++i) {
        EXPECT_EQ(rgb(kSwatches[i].note), kDesign[i].note) << i;
        EXPECT_EQ(rgb(kSwatches[i].border), kDesign[i].border) << i;
        EXPECT_EQ(rgb(kSwatches[i].text), kDesign[i].text) << i;
    }
}

}  // namespace
}  // namespace quillo
