// A record of a year file as the check reads it: what is whole and plain is read at once, everything else is
// left to a slower look that says what is odd about it (year_file_check.h).
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace brantlow {

// Days of a year by month and day, with room for 31 days in each month: they sort as the calendar does.
inline constexpr int kDaysInGrid = 12 * 31;
constexpr int GridDay(int month, int day) {
    return (month - 1) * 31 + day - 1;
}

// The full year of two digits: 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
constexpr int FullYearOf(int digits) {
    constexpr int kPivot = 30;
    return digits < kPivot ? 2000 + digits : 1900 + digits;
}

// A trade date.
struct RecordDate {
    int year = 0;  // four digits
    int day = 0;   // GridDay
    bool operator==(const RecordDate&) const = default;
};
// Reads exactly mm/dd/yy of a day that the calendar has.
std::optional<RecordDate> ReadRecordDate(std::string_view text);

// What the check looks at; prices in the file's own numbers.
struct YearRecord {
    RecordDate date;
    double close = 0;
    double low = 0;
    double high = 0;
    double volume = 0;
    double open = 0;
    bool hasNumbers = true;  // all of its numbers can be read
};

// Reads the record at `at` and moves `at` behind its line feed. False, with `at` untouched, for a record with
// anything unusual about it, a last line without its end included. `at` points into a text that ends in NUL.
bool ReadPlainRecord(const char*& at, YearRecord& record);

// Names of the fields, by position, as a finding calls them.
inline constexpr std::array<std::string_view, 19> kRecordFieldNames = {"date",
                                                                       "time",
                                                                       "close",
                                                                       "low",
                                                                       "high",
                                                                       "volume",
                                                                       "P/E",
                                                                       "EPS",
                                                                       "PEG",
                                                                       "estimated EPS",
                                                                       "dividend",
                                                                       "dividend date",
                                                                       "ex-dividend date",
                                                                       "previous close",
                                                                       "52 week low",
                                                                       "52 week high",
                                                                       "P/S",
                                                                       "market cap",
                                                                       "open"};

}  // namespace brantlow
