#include "check/day_comparison.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>

namespace brantlow {

namespace {

constexpr std::size_t kFewestTickers = 4;
// A day is the market's where at least so many of so many have it.
constexpr std::size_t kHaveShare = 2;
constexpr std::size_t kOfShare = 3;

// Two-digit years reach from 1930 to 2029.
constexpr int kFirstYear = 1930;
constexpr int kYears = 100;
constexpr std::size_t kPlaces = static_cast<std::size_t>(kYears) * kDaysInGrid;

std::size_t PlaceOf(int year, int day) {
    return static_cast<std::size_t>((year - kFirstYear) * kDaysInGrid + day);
}

RecordDate DateAt(std::size_t place) {
    return {kFirstYear + static_cast<int>(place) / kDaysInGrid, static_cast<int>(place) % kDaysInGrid};
}

// From the first to the last day of a ticker; empty where it has none.
struct Span {
    std::size_t first = std::numeric_limits<std::size_t>::max();
    std::size_t last = 0;
    bool IsEmpty() const { return first > last; }
};

template <class Take>
void ForEachDay(const std::vector<YearDays>& years, Take&& take) {
    for (const YearDays& year : years) {
        for (std::size_t word = 0; word < year.bits.size(); ++word) {
            for (std::uint64_t bits = year.bits[word]; bits != 0; bits &= bits - 1)
                take(PlaceOf(year.year, static_cast<int>(word) * 64 + std::countr_zero(bits)));
        }
    }
}

Span SpanOf(const std::vector<YearDays>& years) {
    Span span;
    ForEachDay(years, [&span](std::size_t place) {
        span.first = std::min(span.first, place);
        span.last = std::max(span.last, place);
    });
    return span;
}

// The days of a market by place, and those on which few of its tickers have one.
struct MarketCalendar {
    std::vector<std::size_t> days;
    std::vector<bool> isQuiet;
};

MarketCalendar CalendarOf(const std::vector<TickerDays>& tickers, const std::vector<std::size_t>& members) {
    std::vector<std::uint32_t> have(kPlaces);
    std::vector<std::int32_t> could(kPlaces + 1);  // changes of the count from place to place
    for (const std::size_t member : members) {
        const Span span = SpanOf(tickers[member].years);
        if (span.IsEmpty()) continue;
        ++could[span.first];
        --could[span.last + 1];
        ForEachDay(tickers[member].years, [&have](std::size_t place) { ++have[place]; });
    }
    MarketCalendar calendar{{}, std::vector<bool>(kPlaces)};
    std::size_t possible = 0;
    for (std::size_t place = 0; place < kPlaces; ++place) {
        possible = static_cast<std::size_t>(static_cast<std::int64_t>(possible) + could[place]);
        if (possible < kFewestTickers) continue;
        calendar.isQuiet[place] = have[place] * kOfShare < possible;
        if (have[place] * kOfShare < possible * kHaveShare) continue;
        std::vector<std::size_t>& days = calendar.days;
        const bool isSameYear = !days.empty() && days.back() / kDaysInGrid == place / kDaysInGrid;
        if (!isSameYear && !days.empty()) days.pop_back();  // the last day of its year
        days.push_back(place);
    }
    return calendar;
}

// A ticker that has days of its own where it lacks those of the others follows other holidays.
bool IsOfAnotherCalendar(const std::vector<std::size_t>& own, const MarketCalendar& market,
                         std::size_t missing) {
    constexpr std::size_t kFewest = 2;
    const auto extra = static_cast<std::size_t>(std::count_if(
        own.begin(), own.end(), [&market](std::size_t place) { return market.isQuiet[place]; }));
    return extra >= kFewest && extra * 2 >= missing;
}

void AppendHoles(const TickerDays& ticker, std::size_t at, const MarketCalendar& market,
                 std::vector<Hole>& holes) {
    std::vector<std::size_t> own;
    ForEachDay(ticker.years, [&own](std::size_t place) { own.push_back(place); });
    std::sort(own.begin(), own.end());
    if (own.empty()) return;
    auto next = own.begin();
    std::vector<Hole> met;
    std::size_t missing = 0;
    std::size_t allMissing = 0;
    auto day = std::lower_bound(market.days.begin(), market.days.end(), own.front());
    for (; day != market.days.end() && *day <= own.back(); ++day) {
        while (*next < *day) {
            if (missing > 0) met.push_back({at, missing, DateAt(*next)});
            missing = 0;
            ++next;
        }
        if (*next == *day) continue;
        ++missing;
        ++allMissing;
    }
    if (missing > 0) met.push_back({at, missing, DateAt(*next)});
    if (!IsOfAnotherCalendar(own, market, allMissing)) holes.insert(holes.end(), met.begin(), met.end());
}

}  // namespace

std::string_view MarketOf(std::string_view ticker) {
    const std::size_t point = ticker.rfind('.');
    constexpr std::size_t kShortestMarket = 2;
    if (point == std::string_view::npos || ticker.size() - point - 1 < kShortestMarket) return {};
    return ticker.substr(point + 1);
}

std::vector<Hole> FindHoles(const std::vector<TickerDays>& tickers) {
    std::map<std::string_view, std::vector<std::size_t>> markets;
    for (std::size_t i = 0; i < tickers.size(); ++i) markets[MarketOf(tickers[i].ticker)].push_back(i);
    std::vector<Hole> holes;
    for (const auto& [ending, members] : markets) {
        if (members.size() < kFewestTickers) continue;
        const MarketCalendar market = CalendarOf(tickers, members);
        for (const std::size_t member : members) AppendHoles(tickers[member], member, market, holes);
    }
    return holes;
}

}  // namespace brantlow
