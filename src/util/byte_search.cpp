#include "util/byte_search.h"

#include <bit>
#include <cstdint>
#include <cstring>

#include "util/text.h"

#if defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2)
#define QUILLO_HAS_SSE2 1
#include <emmintrin.h>
#endif

namespace quillo {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

#ifdef QUILLO_HAS_SSE2

constexpr std::size_t kBlock = 16;
constexpr std::size_t kStride = 64;

__m128i EqualBytes(const char* at, __m128i wanted) {
    return _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at)), wanted);
}

// The first match in whole blocks from `i` on; `i` ends where the blocks end.
std::size_t FindInBlocks(std::string_view bytes, char wanted, std::size_t& i) {
    const char* const data = bytes.data();
    const __m128i pattern = _mm_set1_epi8(wanted);
    const auto matchAt = [&](std::size_t at) {
        return static_cast<unsigned>(_mm_movemask_epi8(EqualBytes(data + at, pattern)));
    };
    while (bytes.size() - i >= kBlock) {
        if (const unsigned mask = matchAt(i)) return i + static_cast<std::size_t>(std::countr_zero(mask));
        i += kBlock;
        // Far from a match, four blocks at a time: memory bandwidth is then the only limit.
        for (; bytes.size() - i >= kStride; i += kStride) {
            const char* const at = data + i;
            const __m128i first = _mm_or_si128(EqualBytes(at, pattern), EqualBytes(at + kBlock, pattern));
            const __m128i second =
                _mm_or_si128(EqualBytes(at + 2 * kBlock, pattern), EqualBytes(at + 3 * kBlock, pattern));
            if (_mm_movemask_epi8(_mm_or_si128(first, second)) != 0) break;
        }
    }
    return kNowhere;
}

#else

constexpr std::uint64_t kOnes = 0x0101010101010101U;
constexpr std::uint64_t kHighs = 0x8080808080808080U;

// The first match in whole words from `i` on; `i` ends where the words end or just before a match.
std::size_t FindInBlocks(std::string_view bytes, char wanted, std::size_t& i) {
    const std::uint64_t pattern = kOnes * static_cast<unsigned char>(wanted);
    for (; bytes.size() - i >= sizeof(std::uint64_t); i += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + i, sizeof word);
        word ^= pattern;
        if (((word - kOnes) & ~word & kHighs) != 0) break;
    }
    return kNowhere;
}

#endif

bool MatchesAt(std::string_view bytes, std::size_t at, std::string_view tag) {
    if (bytes.size() - at < tag.size()) return false;
    for (std::size_t i = 1; i < tag.size(); ++i) {
        if (AsciiLower(bytes[at + i]) != tag[i]) return false;
    }
    return true;
}

}  // namespace

std::size_t FindByte(std::string_view bytes, char wanted, std::size_t from) {
    if (from >= bytes.size()) return kNowhere;
    std::size_t i = from;
    const std::size_t found = FindInBlocks(bytes, wanted, i);
    if (found != kNowhere) return found;
    for (; i < bytes.size(); ++i) {
        if (bytes[i] == wanted) return i;
    }
    return kNowhere;
}

std::size_t FindTag(std::string_view bytes, std::string_view tag, std::size_t from) {
    for (std::size_t at = FindByte(bytes, tag.front(), from); at != kNowhere;
         at = FindByte(bytes, tag.front(), at + 1)) {
        if (MatchesAt(bytes, at, tag)) return at;
    }
    return kNowhere;
}

}  // namespace quillo
