#include "acquire/feeds/history_address.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "acquire/feeds/quote_request.h"
#include "base/numbers.h"

namespace brantlow {

namespace {

constexpr double kDaysInYear = 365;
constexpr double kMostYears = 1000;

// Where the parts of "mm/dd/yyyy" stand.
constexpr std::size_t kMonth = 0;
constexpr std::size_t kDay = 3;
constexpr std::size_t kYear = 6;
constexpr std::size_t kTwoDigits = 2;

// 0 for January.
std::string MonthNumber(const std::string& date) {
    return ShortestNumber(LeadingNumber(date.substr(kMonth, kTwoDigits)) - 1);
}

std::string Day(const std::string& date) {
    return date.substr(kDay, kTwoDigits);
}

std::string Year(const std::string& date) {
    return date.substr(kYear);
}

// A placeholder stands in the user's address letter for letter.
struct Placeholder {
    std::string_view text;
    std::string HistorySpan::*date;
    std::string (*part)(const std::string& date);
};

constexpr std::array<Placeholder, 6> kDatePlaceholders = {{
    {"(Val(Left$(StartDate, 2)) - 1)", &HistorySpan::StartDate, MonthNumber},
    {"Right$(Left$(StartDate, 5), 2)", &HistorySpan::StartDate, Day},
    {"Right$(StartDate, 4)", &HistorySpan::StartDate, Year},
    {"(Val(Left$(EndDate, 2)) - 1)", &HistorySpan::EndDate, MonthNumber},
    {"Right$(Left$(EndDate, 5), 2)", &HistorySpan::EndDate, Day},
    {"Right$(EndDate, 4)", &HistorySpan::EndDate, Year},
}};

void ReplaceLast(std::string& text, std::string_view placeholder, std::string_view value) {
    const std::size_t place = text.rfind(placeholder);
    if (place != std::string::npos) text.replace(place, placeholder.size(), value);
}

}  // namespace

HistorySpan HistorySpanOf(const Date& today, double HistoryYears) {
    const double years = std::clamp(HistoryYears, 0.0, kMostYears);
    const int days = static_cast<int>(std::lround(years * kDaysInYear));
    return {FormatLongDate(AddDays(today, -days)), FormatLongDate(today)};
}

std::string StandardHistoryUrl(const Hosts& hosts, std::string_view ticker, const HistorySpan& span) {
    const std::string& start = span.StartDate;
    const std::string& end = span.EndDate;
    return fmt::format("{}/table.txt?s={}&a={}&b={}&c={}&d={}&e={}&f={}&g=d&ignore=.txt",
                       hosts.Address(Host::History), ticker, MonthNumber(start), Day(start), Year(start),
                       MonthNumber(end), Day(end), Year(end));
}

std::string UserHistoryUrl(std::string_view userUrl, std::string_view ticker, const HistorySpan& span) {
    std::string url(userUrl);
    ReplaceLast(url, kTickerPlaceholder, ticker);
    for (const Placeholder& placeholder : kDatePlaceholders) {
        ReplaceLast(url, placeholder.text, placeholder.part(span.*placeholder.date));
    }
    return url;
}

}  // namespace brantlow
