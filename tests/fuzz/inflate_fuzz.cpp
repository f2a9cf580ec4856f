// Packed bytes may be arbitrary: unpacking them must neither crash nor write past the requested size. Data that is
// stored uncompressed must be restored exactly.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "util/inflate.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kHead = 2;  // how many bytes are expected
    if (size < kHead) return 0;
    const std::span<const std::uint8_t> packed(data + kHead, size - kHead);
    std::vector<std::uint8_t> plain(static_cast<std::size_t>(data[0] | data[1] << 8));
    if (quillo::Inflate(packed, plain)) {
        std::vector<std::uint8_t> larger(plain.size() + 1);
        Require(!quillo::Inflate(packed, larger));
    }
    const auto low = static_cast<std::uint8_t>(packed.size());
    const auto high = static_cast<std::uint8_t>(packed.size() >> 8);
    std::vector<std::uint8_t> stored{1, low, high, static_cast<std::uint8_t>(~low), static_cast<std::uint8_t>(~high)};
    stored.insert(stored.end(), packed.begin(), packed.end());
    std::vector<std::uint8_t> again(packed.size());
    Require(quillo::Inflate(stored, again));
    Require(std::equal(again.begin(), again.end(), packed.begin()));
    return 0;
}
