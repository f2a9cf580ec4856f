#include "util/inflate.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quillo {
namespace {

constexpr int kNone = -1;
constexpr std::size_t kLongestCode = 15;
constexpr int kLiterals = 288;
constexpr int kDistances = 30;
constexpr int kEndOfBlock = 256;

/// Reads bits, the lowest of each byte first. `Good` is false once the bits have run out.
class BitSource {
  public:
    explicit BitSource(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    [[nodiscard]] int Bits(int count) {
        while (held_ < count) {
            if (bytes_.empty()) {
                good_ = false;
                return 0;
            }
            bits_ |= static_cast<std::uint32_t>(bytes_.front()) << held_;
            bytes_ = bytes_.subspan(1);
            held_ += 8;
        }
        const std::uint32_t taken = bits_ & ((1U << count) - 1);
        bits_ >>= count;
        held_ -= count;
        return static_cast<int>(taken);
    }
    /// At most the rest of one byte is buffered.
    void SkipToByte() {
        bits_ = 0;
        held_ = 0;
    }
    [[nodiscard]] bool Good() const { return good_; }
    [[nodiscard]] bool AtEnd() const { return bytes_.empty(); }

  private:
    std::span<const std::uint8_t> bytes_;
    std::uint32_t bits_ = 0;
    int held_ = 0;
    bool good_ = true;
};

class Output {
  public:
    explicit Output(std::span<std::uint8_t> plain) : plain_(plain) {}

    [[nodiscard]] bool Put(int value) {
        if (IsFull()) return false;
        plain_[at_++] = static_cast<std::uint8_t>(value);
        return true;
    }
    /// Repeats the bytes from `distance` bytes ago; source and target may overlap.
    [[nodiscard]] bool Repeat(std::size_t distance, std::size_t length) {
        if (distance > at_ || length > plain_.size() - at_) return false;
        for (; length > 0; --length, ++at_) plain_[at_] = plain_[at_ - distance];
        return true;
    }
    [[nodiscard]] bool IsFull() const { return at_ == plain_.size(); }

  private:
    std::span<std::uint8_t> plain_;
    std::size_t at_ = 0;
};

/// A canonical prefix code: shorter codes come first, and codes of equal length follow the order of their symbols.
class PrefixCode {
  public:
    /// `lengths` holds the length in bits of each symbol's code, for at most kLiterals symbols; 0 for an unused symbol.
    explicit PrefixCode(std::span<const std::uint8_t> lengths) {
        for (const std::uint8_t length : lengths) ++counts_[length];
        counts_[0] = 0;
        std::array<int, kLongestCode + 1> next{};
        int room = 1;
        for (std::size_t length = 1; length <= kLongestCode; ++length) {
            next[length] = next[length - 1] + counts_[length - 1];
            room = 2 * room - counts_[length];
            if (room < 0) return;
        }
        for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
            if (lengths[symbol] == 0) continue;
            symbols_[static_cast<std::size_t>(next[lengths[symbol]]++)] = static_cast<std::int16_t>(symbol);
        }
        good_ = true;
    }

    /// False if there are more codes than the lengths allow.
    [[nodiscard]] bool Good() const { return good_; }

    /// The next symbol; kNone if the bits run out or are not a code.
    [[nodiscard]] int Read(BitSource& source) const {
        int code = 0;
        int first = 0;
        int index = 0;
        for (std::size_t length = 1; length <= kLongestCode; ++length) {
            code = 2 * code + source.Bits(1);
            if (!source.Good()) return kNone;
            const int count = counts_[length];
            if (code < first + count) return symbols_[static_cast<std::size_t>(index + code - first)];
            index += count;
            first = 2 * (first + count);
        }
        return kNone;
    }

  private:
    std::array<int, kLongestCode + 1> counts_{};
    std::array<std::int16_t, kLiterals> symbols_{};
    bool good_ = false;
};

bool ReadStored(BitSource& source, Output& output) {
    source.SkipToByte();
    int length = source.Bits(16);
    if ((source.Bits(16) ^ length) != 0xFFFF) return false;
    for (; length > 0; --length) {
        if (!output.Put(source.Bits(8)) || !source.Good()) return false;
    }
    return source.Good();
}

/// The length that a symbol above kEndOfBlock begins.
std::size_t ReadLength(BitSource& source, int symbol) {
    constexpr int kLast = 28;
    if (symbol == kLast) return 258;
    if (symbol < 8) return static_cast<std::size_t>(symbol) + 3;
    const int extra = symbol / 4 - 1;
    return static_cast<std::size_t>(((4 + symbol % 4) << extra) + 3 + source.Bits(extra));
}

std::size_t ReadDistance(BitSource& source, int symbol) {
    if (symbol < 4) return static_cast<std::size_t>(symbol) + 1;
    const int extra = symbol / 2 - 1;
    return static_cast<std::size_t>(((2 + symbol % 2) << extra) + 1 + source.Bits(extra));
}

bool ReadCoded(BitSource& source, Output& output, const PrefixCode& literals, const PrefixCode& distances) {
    constexpr int kLengths = 29;
    if (!literals.Good() || !distances.Good()) return false;
    for (;;) {
        const int symbol = literals.Read(source);
        if (symbol == kEndOfBlock) return true;
        if (symbol == kNone || symbol > kEndOfBlock + kLengths) return false;
        if (symbol < kEndOfBlock) {
            if (!output.Put(symbol)) return false;
            continue;
        }
        const std::size_t length = ReadLength(source, symbol - kEndOfBlock - 1);
        const int distance = distances.Read(source);
        if (distance == kNone || distance >= kDistances) return false;
        if (!output.Repeat(ReadDistance(source, distance), length) || !source.Good()) return false;
    }
}

bool ReadFixed(BitSource& source, Output& output) {
    std::array<std::uint8_t, kLiterals> lengths{};
    std::fill(lengths.begin(), lengths.begin() + 144, std::uint8_t{8});
    std::fill(lengths.begin() + 144, lengths.begin() + 256, std::uint8_t{9});
    std::fill(lengths.begin() + 256, lengths.begin() + 280, std::uint8_t{7});
    std::fill(lengths.begin() + 280, lengths.end(), std::uint8_t{8});
    std::array<std::uint8_t, kDistances> distances{};
    distances.fill(5);
    return ReadCoded(source, output, PrefixCode(lengths), PrefixCode(distances));
}

/// Reads code lengths, which are coded themselves: 16 repeats the last one, 17 and 18 mean runs of unused symbols.
bool ReadLengths(BitSource& source, const PrefixCode& code, std::span<std::uint8_t> lengths) {
    std::size_t at = 0;
    while (at < lengths.size()) {
        const int symbol = code.Read(source);
        if (symbol == kNone) return false;
        if (symbol < 16) {
            lengths[at++] = static_cast<std::uint8_t>(symbol);
            continue;
        }
        if (symbol == 16 && at == 0) return false;
        const std::uint8_t repeated = symbol == 16 ? lengths[at - 1] : std::uint8_t{0};
        const int times = symbol == 16 ? 3 + source.Bits(2) : symbol == 17 ? 3 + source.Bits(3) : 11 + source.Bits(7);
        if (static_cast<std::size_t>(times) > lengths.size() - at) return false;
        std::fill_n(lengths.begin() + static_cast<std::ptrdiff_t>(at), times, repeated);
        at += static_cast<std::size_t>(times);
    }
    return source.Good();
}

bool ReadDynamic(BitSource& source, Output& output) {
    constexpr std::array<std::uint8_t, 19> kOrder{16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    const auto literals = static_cast<std::size_t>(source.Bits(5)) + 257;
    const auto distances = static_cast<std::size_t>(source.Bits(5)) + 1;
    const auto known = static_cast<std::size_t>(source.Bits(4)) + 4;
    if (literals > kLiterals || distances > kDistances) return false;
    std::array<std::uint8_t, kOrder.size()> coded{};
    for (std::size_t i = 0; i < known; ++i) coded[kOrder[i]] = static_cast<std::uint8_t>(source.Bits(3));
    const PrefixCode code(coded);
    std::array<std::uint8_t, kLiterals + kDistances> lengths{};
    const std::span<std::uint8_t> all(lengths.data(), literals + distances);
    if (!source.Good() || !code.Good() || !ReadLengths(source, code, all)) return false;
    return ReadCoded(source, output, PrefixCode(all.first(literals)), PrefixCode(all.subspan(literals)));
}

bool ReadBlock(BitSource& source, Output& output) {
    switch (source.Bits(2)) {
        case 0:
            return ReadStored(source, output);
        case 1:
            return ReadFixed(source, output);
        case 2:
            return ReadDynamic(source, output);
        default:
            return false;
    }
}

}  // namespace

bool Inflate(std::span<const std::uint8_t> packed, std::span<std::uint8_t> plain) {
    BitSource source(packed);
    Output output(plain);
    bool last = false;
    while (!last) {
        last = source.Bits(1) == 1;
        if (!ReadBlock(source, output) || !source.Good()) return false;
    }
    return output.IsFull() && source.AtEnd();
}

}  // namespace quillo
