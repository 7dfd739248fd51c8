#include "market/history_reply.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "base/numbers.h"
#include "base/text.h"

namespace brantlow {

namespace {

// The whole number of a query value, or nothing where it is none from 0 to `largest`.
std::optional<int> DatePart(std::string_view query, std::string_view name, int largest) {
    const auto number = WholeNumber(QueryValue(query, name));
    if (!number || *number < 0 || *number > largest) return std::nullopt;
    return static_cast<int>(*number);
}

// The date of three query values: month less one, day, year.
std::optional<Date> DateOf(std::string_view query, std::string_view month, std::string_view day,
                           std::string_view year) {
    const auto monthLessOne = DatePart(query, month, 11);
    const auto dayNumber = DatePart(query, day, 31);
    const auto yearNumber = DatePart(query, year, 9999);
    if (!monthLessOne || !dayNumber || !yearNumber) return std::nullopt;
    const Date date{std::chrono::year{*yearNumber},
                    std::chrono::month{static_cast<unsigned>(*monthLessOne) + 1},
                    std::chrono::day{static_cast<unsigned>(*dayNumber)}};
    return date.ok() ? std::optional(date) : std::nullopt;
}

void AppendDay(const Date& date, const MarketDay& day, std::string& out) {
    fmt::format_to(std::back_inserter(out), "{},{:.3f},{:.3f},{:.3f},{:.3f},{:.0f},{:.3f}\n",
                   FormatIsoDate(date), day.open, day.high, day.low, day.close, day.volume, day.close);
}

}  // namespace

std::optional<std::string> HistoryReply(const MarketRequest& request, const MarketData& data,
                                        const Date& today) {
    const MarketTicker* ticker = data.Find(UpperCase(QueryValue(request.query, "s")));
    if (ticker == nullptr) return std::nullopt;
    const TradedDays days(*ticker, today);
    const auto start = DateOf(request.query, "a", "b", "c");
    const auto end = DateOf(request.query, "d", "e", "f");
    const Date last = std::min(end.value_or(today), AddDays(today, -1));
    const std::size_t first = start ? days.FirstFrom(*start) : 0;
    std::string reply = "Date,Open,High,Low,Close,Volume,Adj Close\n";
    for (std::size_t i = days.FirstFrom(AddDays(last, 1)); i-- > first;) {
        AppendDay(days.DateOf(i), days.At(i), reply);
    }
    return reply;
}

}  // namespace brantlow
