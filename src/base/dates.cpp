#include "base/dates.h"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <array>
#include <charconv>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::array<std::string_view, 12> kMonthNames = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                                          "MAY",       "JUNE",     "JULY",     "AUGUST",
                                                          "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};
constexpr std::size_t kShortestMonthName = 3;
constexpr int kCenturyPivot = 30;

std::optional<int> WholeCount(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || text.front() == '-') return std::nullopt;
    return value;
}

// 1 to 12 for a month's name or its first three letters or more.
std::optional<int> MonthByName(std::string_view text) {
    if (text.size() < kShortestMonthName) return std::nullopt;
    const std::string upper = UpperCase(text);
    for (std::size_t i = 0; i < kMonthNames.size(); ++i) {
        if (kMonthNames[i].substr(0, upper.size()) == upper) return static_cast<int>(i) + 1;
    }
    return std::nullopt;
}

constexpr std::size_t kDateParts = 3;

// The three parts of a date, or nothing where a text has more or fewer.
std::optional<std::array<std::string_view, kDateParts>> DateParts(std::string_view text) {
    std::array<std::string_view, kDateParts> parts;
    constexpr std::string_view kSeparators = "/-., \t";
    std::size_t count = 0;
    std::size_t start = text.find_first_not_of(kSeparators);
    while (start != std::string_view::npos) {
        if (count == kDateParts) return std::nullopt;
        const std::size_t end = text.find_first_of(kSeparators, start);
        parts[count++] = text.substr(start, end - start);
        start = text.find_first_not_of(kSeparators, end);
    }
    if (count < kDateParts) return std::nullopt;
    return parts;
}

int FullYear(int year, std::size_t digits) {
    if (digits > 2) return year;
    return year < kCenturyPivot ? 2000 + year : 1900 + year;
}

std::optional<Date> ValidDate(std::optional<int> year, std::optional<int> month, std::optional<int> day,
                              std::size_t yearDigits) {
    if (!year || !month || !day || yearDigits > 4 || yearDigits == 3) return std::nullopt;
    if (*month > 12 || *day > 31) return std::nullopt;
    const Date date{std::chrono::year{FullYear(*year, yearDigits)},
                    std::chrono::month{static_cast<unsigned>(*month)},
                    std::chrono::day{static_cast<unsigned>(*day)}};
    if (!date.ok()) return std::nullopt;
    return date;
}

// The number that two digits at `at` are; nothing where they are none.
std::optional<int> TwoDigits(std::string_view text, std::size_t at) {
    constexpr int kTen = 10;
    const int tens = text[at] - '0';
    const int ones = text[at + 1] - '0';
    const bool areDigits = tens >= 0 && tens < kTen && ones >= 0 && ones < kTen;
    return areDigits ? std::optional(tens * kTen + ones) : std::nullopt;
}

void PutTwoDigits(unsigned number, std::string& text, std::size_t at) {
    constexpr unsigned kTen = 10;
    text[at] = static_cast<char>('0' + number / kTen % kTen);
    text[at + 1] = static_cast<char>('0' + number % kTen);
}

int YearOf(const Date& date) {
    return static_cast<int>(date.year());
}
unsigned MonthOf(const Date& date) {
    return static_cast<unsigned>(date.month());
}
unsigned DayOf(const Date& date) {
    return static_cast<unsigned>(date.day());
}

// Since midnight; nothing where a day has no such time.
std::optional<int> MinutesOf(int hour, int minute) {
    if (hour > 23 || minute > 59) return std::nullopt;
    return hour * 60 + minute;
}

}  // namespace

std::optional<Date> ParseDate(std::string_view text) {
    // "mm/dd/yy", which nearly all are.
    constexpr std::size_t kPlainSize = 8;
    if (text.size() == kPlainSize && text[2] == '/' && text[5] == '/') {
        const auto month = TwoDigits(text, 0);
        const auto day = TwoDigits(text, 3);
        const auto year = TwoDigits(text, 6);
        if (month && day && year) return ValidDate(year, month, day, 2);
    }
    const auto found = DateParts(text);
    if (!found) return std::nullopt;
    const auto& parts = *found;
    const auto count = [&](std::size_t i) { return WholeCount(parts[i]); };
    if (const auto month = MonthByName(parts[0])) {
        return ValidDate(count(2), month, count(1), parts[2].size());
    }
    if (const auto month = MonthByName(parts[1])) {
        return ValidDate(count(2), month, count(0), parts[2].size());
    }
    if (parts[0].size() == 4) return ValidDate(count(0), count(1), count(2), parts[0].size());
    return ValidDate(count(2), count(0), count(1), parts[2].size());
}

std::string FormatDate(const Date& date) {
    std::string text = "00/00/00";
    PutTwoDigits(MonthOf(date), text, 0);
    PutTwoDigits(DayOf(date), text, 3);
    PutTwoDigits(static_cast<unsigned>(YearOf(date)) % 100, text, 6);
    return text;
}

std::string FormatLongDate(const Date& date) {
    return fmt::format(FMT_COMPILE("{:02}/{:02}/{:04}"), MonthOf(date), DayOf(date), YearOf(date));
}

std::string FormatIsoDate(const Date& date) {
    return fmt::format(FMT_COMPILE("{:04}-{:02}-{:02}"), YearOf(date), MonthOf(date), DayOf(date));
}

std::string ReformatDate(std::string_view text) {
    const auto date = ParseDate(text);
    return date ? FormatDate(*date) : std::string(text);
}

Date AddDays(const Date& date, int days) {
    return Date{std::chrono::sys_days{date} + std::chrono::days{days}};
}

std::optional<int> ParseTime(std::string_view text) {
    text = Trim(text);
    // "hh:mm", which nearly all are.
    constexpr std::size_t kPlainSize = 5;
    if (text.size() == kPlainSize && text[2] == ':') {
        const auto hour = TwoDigits(text, 0);
        const auto minute = TwoDigits(text, 3);
        if (hour && minute) return MinutesOf(*hour, *minute);
    }
    constexpr std::size_t kSuffix = 2;
    std::optional<bool> afternoon;
    if (text.size() > kSuffix) {
        const std::string_view suffix = text.substr(text.size() - kSuffix);
        if (EqualIgnoringCase(suffix, "am")) afternoon = false;
        if (EqualIgnoringCase(suffix, "pm")) afternoon = true;
        if (afternoon) text = Trim(text.substr(0, text.size() - kSuffix));
    }
    const auto parts = SplitAt(text, ':');
    if (parts.size() < 2 || parts.size() > 3) return std::nullopt;
    std::array<int, 3> values{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto value = parts[i].empty() || parts[i].size() > 2 ? std::nullopt : WholeCount(parts[i]);
        if (!value || *value > 59) return std::nullopt;
        values[i] = *value;
    }
    int hour = values[0];
    if (afternoon && (hour < 1 || hour > 12)) return std::nullopt;
    if (afternoon) hour = hour % 12 + (*afternoon ? 12 : 0);
    return MinutesOf(hour, values[1]);
}

std::string FormatTime(int minutes) {
    std::string text = "00:00";
    PutTwoDigits(static_cast<unsigned>(minutes) / 60, text, 0);
    PutTwoDigits(static_cast<unsigned>(minutes) % 60, text, 3);
    return text;
}

std::string ReformatTime(std::string_view text) {
    const auto minutes = ParseTime(text);
    return minutes ? FormatTime(*minutes) : std::string(text);
}

}  // namespace brantlow
