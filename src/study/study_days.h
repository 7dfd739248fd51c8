// The days of a study. Days of different tickers are one date when they are written the same, so a day is its
// calendar day and, where that is not written as the database writes it, its writing.
#pragma once

#include <compare>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"

namespace brantlow {

struct StudyDay {
    std::int32_t day = 0;       // days since 1970-01-01
    std::uint32_t writing = 0;  // 0 for "mm/dd/yy"

    auto operator<=>(const StudyDay&) const = default;
};

constexpr std::int32_t DayNumberOf(const Date& date) {
    return static_cast<std::int32_t>(std::chrono::sys_days(date).time_since_epoch().count());
}
constexpr Date DateOfNumber(std::int32_t day) {
    return Date(std::chrono::sys_days(std::chrono::days(day)));
}

// The writings met so far, for all threads of a study.
class DayWritings {
  public:
    // Of a date's text without its quotes.
    std::uint32_t Of(const Date& date, std::string_view text);

  private:
    std::mutex mutex_;
    std::vector<std::string> others_;
};

}  // namespace brantlow
