// A number by its bits: what has to be the same to the last of them.
#pragma once

#include <bit>
#include <cstdint>

namespace brantlow {

inline std::uint64_t Bits(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

}  // namespace brantlow
