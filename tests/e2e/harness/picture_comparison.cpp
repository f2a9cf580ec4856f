#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

#include "harness/picture.h"

namespace quillo::e2e {
namespace {

// DifferenceOf explains these.
constexpr int kSquare = 16;
constexpr int kMeanDifference = 4;
constexpr int kStrongDifference = 48;
constexpr int kStrongPixels = 24;
constexpr int kLineDifference = 12;
constexpr int kLinePixels = 20;

using Channels = std::array<int, 3>;

Channels ChannelsOf(COLORREF color) {
    return Channels{GetRValue(color), GetGValue(color), GetBValue(color)};
}

int LargestDifference(COLORREF a, COLORREF b) {
    const Channels left = ChannelsOf(a);
    const Channels right = ChannelsOf(b);
    int largest = 0;
    for (std::size_t i = 0; i < left.size(); ++i) largest = std::max(largest, std::abs(left[i] - right[i]));
    return largest;
}

/// Sums over rectangles of a picture, each in four steps.
class SumTable {
  public:
    template <typename ValueAt>
    SumTable(int width, int height, ValueAt valueAt)
        : stride_(width + 1), sums_(static_cast<std::size_t>(stride_) * static_cast<std::size_t>(height + 1)) {
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                At(x + 1, y + 1) = valueAt(x, y) + At(x, y + 1) + At(x + 1, y) - At(x, y);
            }
        }
    }
    [[nodiscard]] std::int64_t Sum(int left, int top, int right, int bottom) const {
        return At(right, bottom) - At(left, bottom) - At(right, top) + At(left, top);
    }

  private:
    [[nodiscard]] std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(stride_) + static_cast<std::size_t>(x);
    }
    std::int64_t& At(int x, int y) { return sums_[Index(x, y)]; }
    [[nodiscard]] std::int64_t At(int x, int y) const { return sums_[Index(x, y)]; }

    int stride_;
    std::vector<std::int64_t> sums_;
};

std::string Place(int x, int y) {
    return " at " + std::to_string(x) + ", " + std::to_string(y);
}

/// The first square, row by row, over which the absolute sum exceeds `most`; "" if there is none.
template <typename ValueAt>
std::string FirstSquare(const Picture& size, ValueAt valueAt, std::int64_t most, const std::string& what) {
    const SumTable table(size.width, size.height, valueAt);
    const int width = std::min(kSquare, size.width);
    const int height = std::min(kSquare, size.height);
    for (int y = 0; y + height <= size.height; ++y) {
        for (int x = 0; x + width <= size.width; ++x) {
            const std::int64_t sum = table.Sum(x, y, x + width, y + height);
            if (std::abs(sum) > most) return what + " of the square" + Place(x, y) + ": " + std::to_string(sum);
        }
    }
    return "";
}

std::string ColorDifference(const Picture& a, const Picture& b) {
    for (const std::size_t channel : {0U, 1U, 2U}) {
        const auto signedDifference = [&](int x, int y) -> std::int64_t {
            return ChannelsOf(a.pixels[a.Index(x, y)])[channel] - ChannelsOf(b.pixels[b.Index(x, y)])[channel];
        };
        const std::string found = FirstSquare(a, signedDifference, kMeanDifference * kSquare * kSquare,
                                              "another color: the sum over channel " + std::to_string(channel));
        if (!found.empty()) return found;
    }
    return "";
}

std::string ShapeDifference(const Picture& a, const Picture& b) {
    const auto isStrong = [&](int x, int y) -> std::int64_t {
        return LargestDifference(a.pixels[a.Index(x, y)], b.pixels[b.Index(x, y)]) > kStrongDifference ? 1 : 0;
    };
    return FirstSquare(a, isStrong, kStrongPixels, "another shape: the pixels that differ");
}

/// `at` returns the index of the pixel `along` a line that is `across` the picture.
template <typename IndexAt>
std::string LineDifference(const Picture& a, const Picture& b, int lines, int length, IndexAt at,
                           const std::string& what) {
    for (int across = 0; across < lines; ++across) {
        int run = 0;
        for (int along = 0; along < length; ++along) {
            const std::size_t index = at(along, across);
            run = LargestDifference(a.pixels[index], b.pixels[index]) > kLineDifference ? run + 1 : 0;
            if (run > kLinePixels)
                return "another line in " + what + " " + std::to_string(across) + ", up to " + std::to_string(along);
        }
    }
    return "";
}

}  // namespace

std::string DifferenceOf(const Picture& shown, const Picture& golden) {
    if (shown.width != golden.width || shown.height != golden.height) {
        return "another size: " + std::to_string(shown.width) + " by " + std::to_string(shown.height) + " instead of " +
               std::to_string(golden.width) + " by " + std::to_string(golden.height);
    }
    std::string found = ColorDifference(shown, golden);
    if (found.empty()) found = ShapeDifference(shown, golden);
    if (found.empty()) {
        found = LineDifference(
            shown, golden, golden.height, golden.width,
            [&](int along, int across) { return golden.Index(along, across); }, "row");
    }
    if (found.empty()) {
        found = LineDifference(
            shown, golden, golden.width, golden.height,
            [&](int along, int across) { return golden.Index(across, along); }, "column");
    }
    return found;
}

}  // namespace quillo::e2e
