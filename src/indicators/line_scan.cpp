#include "indicators/line_scan.h"

#include <algorithm>
#include <limits>

#include "indicators/wide_loops.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace brantlow {

namespace {

constexpr std::size_t kChunk = 64;

// One bit for each of 64 bytes, the first byte's lowest.
struct ChunkBits {
    std::uint64_t lineEnds = 0;
    std::uint64_t commas = 0;
};

#if defined(__SSE2__)
inline ChunkBits BitsOf(const char* text) {
    constexpr int kVector = 16;
    ChunkBits bits;
    for (int part = 0; part < 4; ++part) {
        __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text) + part);
        const auto bitsOf = [&bytes](char c) {
            const int mask = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)));
            return static_cast<std::uint64_t>(static_cast<unsigned>(mask));
        };
        bits.lineEnds |= bitsOf('\n') << (part * kVector);
        bits.commas |= bitsOf(',') << (part * kVector);
    }
    return bits;
}
#else
inline ChunkBits BitsOf(const char* text) {
    ChunkBits bits;
    for (std::size_t i = 0; i < kChunk; ++i) {
        bits.lineEnds |= static_cast<std::uint64_t>(text[i] == '\n') << i;
        bits.commas |= static_cast<std::uint64_t>(text[i] == ',') << i;
    }
    return bits;
}
#endif

// The bytes before `count` of a chunk that does not fill 64.
inline ChunkBits BitsOfPart(const char* text, std::size_t count) {
    char chunk[kChunk] = {};
    std::copy_n(text, count, chunk);
    return BitsOf(chunk);
}

inline std::size_t CountBits(std::uint64_t bits) {
    return static_cast<std::size_t>(__builtin_popcountll(bits));
}

}  // namespace

BRANTLOW_WIDE_LOOPS
std::size_t ScanLines(const char* text, std::size_t from, std::size_t to, std::vector<LineSpan>& lines) {
    std::size_t fewest = std::numeric_limits<std::size_t>::max();
    std::size_t commas = 0;
    std::size_t start = from;
    for (std::size_t at = from; at < to; at += kChunk) {
        ChunkBits bits = to - at >= kChunk ? BitsOf(text + at) : BitsOfPart(text + at, to - at);
        while (bits.lineEnds != 0) {
            const std::uint64_t before = (bits.lineEnds & (~bits.lineEnds + 1)) - 1;
            const std::size_t end = at + CountBits(before);
            lines.push_back({static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end)});
            fewest = std::min(fewest, commas + CountBits(bits.commas & before));
            commas = 0;
            bits.commas &= ~before;
            bits.lineEnds &= bits.lineEnds - 1;
            start = end + 1;
        }
        commas += CountBits(bits.commas);
    }
    if (start < to) {
        lines.push_back({static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(to)});
        fewest = std::min(fewest, commas);
    }
    return fewest;
}

}  // namespace brantlow
