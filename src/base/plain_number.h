// Numbers in their plain form, "-12.5", for readers of millions of them: several times as fast as the general
// reading (numbers.h), which takes what has another form.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace brantlow {

namespace plain_number {

// Both factors of digits / 10^n are exact doubles up to these bounds, so the one division rounds correctly.
inline constexpr std::uint64_t kLargestExactWhole = std::uint64_t{1} << 53U;
inline constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
// No whole number of so many digits overflows 64 bits.
inline constexpr std::ptrdiff_t kMostDigits = 19;

inline const char* ReadDigits(const char* text, const char* end, std::uint64_t& whole) {
    for (; text != end; ++text) {
        const unsigned digit = static_cast<unsigned>(static_cast<unsigned char>(*text)) - '0';
        if (digit > 9) break;
        whole = whole * 10 + digit;
    }
    return text;
}

}  // namespace plain_number

// Reads the number at the front of `text`, to the last bit what the general reading gives for these digits.
// The place behind it; null, with `value` untouched, where there are no digits or too many of them. What
// follows, an exponent for instance, is for the caller to look at.
inline const char* ReadPlainNumber(const char* text, const char* end, double& value) {
    const bool negative = text != end && *text == '-';
    const char* const digits = text + (negative ? 1 : 0);
    std::uint64_t whole = 0;
    const char* at = plain_number::ReadDigits(digits, end, whole);
    std::ptrdiff_t count = at - digits;
    std::ptrdiff_t decimals = 0;
    if (at != end && *at == '.') {
        const char* const fraction = at + 1;
        at = plain_number::ReadDigits(fraction, end, whole);
        decimals = at - fraction;
        count += decimals;
    }
    const bool isPlain =
        count > 0 && count <= plain_number::kMostDigits && whole <= plain_number::kLargestExactWhole;
    if (!isPlain) return nullptr;
    const double size =
        static_cast<double>(whole) / plain_number::kPowersOfTen[static_cast<std::size_t>(decimals)];
    value = negative ? -size : size;
    return at;
}

}  // namespace brantlow
