#include "check/year_record.h"

#include <cstdint>
#include <cstring>

#include "store/history_record.h"

namespace brantlow {

namespace {

static_assert(kRecordFieldNames.size() == kHistoryFieldCount);

constexpr std::array<int, 12> kMonthDays = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr std::size_t kDateLength = 8;
constexpr int kNoNumber = -1;

// Both factors of digits / 10^n are exact doubles with so few digits.
constexpr std::size_t kMostExactDigits = 15;
constexpr std::size_t kMostDigits = 19;
constexpr std::array<double, 16> kPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The number of two digits, kNoNumber for anything else.
int TwoDigits(const char* text) {
    if (!IsDigit(text[0]) || !IsDigit(text[1])) return kNoNumber;
    return (text[0] - '0') * 10 + text[1] - '0';
}

bool IsCalendarDay(int year, int month, int day) {
    if (month < 1 || month > 12 || day < 1 || day > kMonthDays[static_cast<std::size_t>(month - 1)])
        return false;
    // From 1930 to 2029 every fourth year is a leap year.
    return month != 2 || day != 29 || year % 4 == 0;
}

// mm/dd/yy at `text`, which holds as many characters or ends in NUL before.
bool ReadDate(const char* text, RecordDate& date) {
    const int month = TwoDigits(text);
    if (month == kNoNumber || text[2] != '/') return false;
    const int day = TwoDigits(text + 3);
    if (day == kNoNumber || text[5] != '/') return false;
    const int year = TwoDigits(text + 6);
    if (year == kNoNumber || !IsCalendarDay(FullYearOf(year), month, day)) return false;
    date = {FullYearOf(year), GridDay(month, day)};
    return true;
}

bool PassDate(const char*& at, RecordDate& date) {
    if (*at != '"' || !ReadDate(at + 1, date) || at[1 + kDateLength] != '"') return false;
    at += kDateLength + 2;
    return true;
}

bool PassEmptyText(const char*& at) {
    if (at[0] != '"' || at[1] != '"') return false;
    at += 2;
    return true;
}

bool PassTime(const char*& at) {
    if (PassEmptyText(at)) return true;
    if (*at != '"') return false;
    const int hour = TwoDigits(at + 1);
    if (hour == kNoNumber || hour > 23 || at[3] != ':') return false;
    const int minute = TwoDigits(at + 4);
    if (minute == kNoNumber || minute > 59 || at[6] != '"') return false;
    at += 7;
    return true;
}

bool PassDateOrNothing(const char*& at) {
    RecordDate ignored;
    return PassEmptyText(at) || PassDate(at, ignored);
}

bool PassComma(const char*& at) {
    if (*at != ',') return false;
    ++at;
    return true;
}

const char* PassDigits(const char* at, std::uint64_t& whole) {
    for (; IsDigit(*at); ++at) whole = whole * 10 + static_cast<std::uint64_t>(*at - '0');
    return at;
}

// A plain decimal; its value counts where it has few enough digits to be exact.
struct Decimal {
    double value = 0;
    std::size_t digits = 0;
};

bool PassNumber(const char*& at, Decimal& number) {
    const bool isNegative = *at == '-';
    const char* const first = at + (isNegative ? 1 : 0);
    std::uint64_t whole = 0;
    const char* end = PassDigits(first, whole);
    number.digits = static_cast<std::size_t>(end - first);
    std::size_t decimals = 0;
    if (*end == '.') {
        const char* const fraction = end + 1;
        end = PassDigits(fraction, whole);
        decimals = static_cast<std::size_t>(end - fraction);
        if (decimals == 0) return false;
        number.digits += decimals;
    }
    if (number.digits == 0 || number.digits > kMostDigits) return false;
    at = end;
    if (number.digits > kMostExactDigits) return true;
    const double value = static_cast<double>(whole) / kPowersOfTen[decimals];
    number.value = isNegative ? -value : value;
    return true;
}

// Fields from `at` on, each with the comma before it, whose value is of no interest.
bool PassNumbers(const char*& at, int count) {
    Decimal ignored;
    for (int i = 0; i < count; ++i) {
        if (!PassComma(at) || !PassNumber(at, ignored)) return false;
    }
    return true;
}

bool PassExact(const char*& at, double& value) {
    Decimal number;
    if (!PassComma(at) || !PassNumber(at, number) || number.digits > kMostExactDigits) return false;
    value = number.value;
    return true;
}

bool PassLineEnd(const char*& at) {
    if (*at == '\r') ++at;
    if (*at != '\n') return false;
    ++at;
    return true;
}

}  // namespace

std::optional<RecordDate> ReadRecordDate(std::string_view text) {
    RecordDate date;
    if (text.size() != kDateLength || !ReadDate(text.data(), date)) return std::nullopt;
    return date;
}

bool ReadPlainRecord(const char*& at, YearRecord& record) {
    const char* text = at;
    if (!PassDate(text, record.date) || !PassComma(text) || !PassTime(text)) return false;
    if (!PassExact(text, record.close) || !PassExact(text, record.low) || !PassExact(text, record.high) ||
        !PassExact(text, record.volume))
        return false;
    constexpr int kRatios = 5;  // P/E to dividend
    if (!PassNumbers(text, kRatios)) return false;
    for (int i = 0; i < 2; ++i) {
        if (!PassComma(text) || !PassDateOrNothing(text)) return false;
    }
    constexpr int kBehindDates = 5;  // previous close to market cap
    if (!PassNumbers(text, kBehindDates) || !PassExact(text, record.open) || !PassLineEnd(text)) return false;
    at = text;
    return true;
}

}  // namespace brantlow
