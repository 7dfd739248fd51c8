// Calendar dates and times of day in the text forms of the program's files: "mm/dd/yy" and "hh:mm".
//
// Two-digit years 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace brantlow {

using Date = std::chrono::year_month_day;

// Reads month/day/year with slashes, hyphens, points or blanks, a month name in place of the month
// ("Jan-2-2004", "2-Jan-04", "January 2, 2004") and year-month-day with a four-digit year. Nothing when it is
// no valid date.
std::optional<Date> ParseDate(std::string_view text);

// "mm/dd/yy", zero-padded.
std::string FormatDate(const Date& date);

// "mm/dd/yyyy", zero-padded.
std::string FormatLongDate(const Date& date);

// "yyyy-mm-dd".
std::string FormatIsoDate(const Date& date);

// `text` as "mm/dd/yy"; text that is no date passes unchanged.
std::string ReformatDate(std::string_view text);

Date AddDays(const Date& date, int days);

// Minutes since midnight of "h:mm", "hh:mm:ss" and the same with "am" or "pm" behind, or nothing.
std::optional<int> ParseTime(std::string_view text);

// `minutes` since midnight, 0 to 1439, as "hh:mm".
std::string FormatTime(int minutes);

// `text` as 24-hour "hh:mm"; text that is no time passes unchanged.
std::string ReformatTime(std::string_view text);

}  // namespace brantlow
