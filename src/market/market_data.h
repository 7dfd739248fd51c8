// What the practice market knows: the practice prices of all tickers, read once at the start, and each
// ticker's days as they stand on a given day. All replies are made from these.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "base/files.h"
#include "practice/practice_prices.h"

namespace brantlow {

// A trading day in the few numbers that a market tells; the day is the one of the price file, not yet moved.
struct MarketDay {
    std::chrono::sys_days day;
    double open = 0;
    double high = 0;
    double low = 0;
    double close = 0;
    double volume = 0;
};

struct MarketTicker {
    PracticeTicker about;
    std::vector<MarketDay> days;  // oldest first, at least one
    // The day by whose weeks the prices stand, whatever today is; today's own where there is none.
    std::optional<Date> weeksOf = {};

    // By how many days the prices are moved on `today`.
    int DaysMoved(const Date& today) const;
};

class MarketData {
  public:
    // The tickers of a practice folder; one without prices is left out. Without any, Tickers() is empty. With
    // `weeksOf` the prices go on from day to day up to it, where they would repeat a week on Thursdays.
    static MarketData Read(const Path& practiceFolder, std::optional<Date> weeksOf = {});

    // Null for a ticker that the market does not know. Case counts. ^GSPC is the index SPX.
    const MarketTicker* Find(std::string_view ticker) const;
    const std::map<std::string, MarketTicker, std::less<>>& Tickers() const { return tickers_; }

  private:
    std::map<std::string, MarketTicker, std::less<>> tickers_;
};

// The days of one ticker as they stand on `today`: moved in time, and none later than today. Lives no longer
// than the ticker.
class TradedDays {
  public:
    TradedDays(const MarketTicker& ticker, const Date& today);

    std::size_t Count() const { return count_; }
    const MarketDay& At(std::size_t index) const { return (*days_)[index]; }
    Date DateOf(std::size_t index) const;
    // The index of the first day that is `date` or later; Count() when there is none.
    std::size_t FirstFrom(const Date& date) const;
    // What a price of that day is multiplied by to stand beside the newest one: 1, or old shares by new
    // shares for the days before a split.
    double SplitFactorAt(std::size_t index) const;

  private:
    const std::vector<MarketDay>* days_;
    std::chrono::days move_;
    std::size_t count_;
    std::size_t splitIndex_ = 0;
    double factorBeforeSplit_ = 1;
};

}  // namespace brantlow
