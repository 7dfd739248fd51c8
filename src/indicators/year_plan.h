// Which year files a load reads: the two-digit years, oldest first, ending in the current one.
#pragma once

#include <string>
#include <vector>

#include "base/dates.h"
#include "indicators/working_series.h"

namespace brantlow {

inline constexpr std::size_t kRecentYears = 4;
inline constexpr std::size_t kFullYears = 21;

// The `count` newest years up to that of `today`, each as two digits; they wrap over the century.
std::vector<std::string> YearTexts(const Date& today, std::size_t count);

// Daily bars come from the recent years, weekly and monthly ones from all.
inline std::size_t YearsFor(Interval interval) {
    return interval == Interval::Daily ? kRecentYears : kFullYears;
}

}  // namespace brantlow
