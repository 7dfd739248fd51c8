// Numbers as a chart that fills its window shows them: scale marks at round values, volumes that can be read
// at a glance.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace brantlow {

struct RoundLevel {
    double value = 0;
    // With as many decimals as the marks need.
    std::string text;
};

// The multiples of 1, 2 or 5 times a power of ten that lie from `bottom` to `top`, upwards, `most` of them at
// most. None where the range is empty or not finite.
std::vector<RoundLevel> RoundLevels(double bottom, double top, std::size_t most);

// "950", "8.5K", "7.51M", "1.2B": three digits that count.
std::string ShortNumber(double value);

// A whole number with separators, "7,510,578".
std::string GroupedNumber(double value);

}  // namespace brantlow
