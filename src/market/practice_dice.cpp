#include "market/practice_dice.h"

#include <cstdint>

namespace brantlow {

namespace {

// Folds bytes into `hash` one by one (FNV-1a).
std::uint64_t Fold(std::uint64_t hash, std::string_view bytes) {
    constexpr std::uint64_t kPrime = 0x100000001b3;
    for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
    return hash;
}

// Spreads the last byte's influence over all bits.
std::uint64_t Mixed(std::uint64_t hash) {
    hash ^= hash >> 33;
    hash *= 0xff51afd7ed558ccd;
    hash ^= hash >> 33;
    hash *= 0xc4ceb9fe1a85ec53;
    return hash ^ (hash >> 33);
}

}  // namespace

double ShareOf(std::string_view subject, std::string_view word) {
    constexpr std::uint64_t kOffset = 0xcbf29ce484222325;
    constexpr std::string_view kBetween("\0", 1);
    const std::uint64_t hash = Mixed(Fold(Fold(Fold(kOffset, subject), kBetween), word));
    constexpr unsigned kBitsOfShare = 53;
    constexpr double kWhole = static_cast<double>(std::uint64_t{1} << kBitsOfShare);
    return static_cast<double>(hash >> (64 - kBitsOfShare)) / kWhole;
}

double Between(std::string_view subject, std::string_view word, double low, double high) {
    return low + ShareOf(subject, word) * (high - low);
}

}  // namespace brantlow
