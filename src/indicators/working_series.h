// The working series: the per-bar arrays of one ticker at a time, bar 1 oldest, bar BarCount newest.
//
// The loaders fill it from the year files, the foldings make weekly or monthly bars in place, WindowSeries
// keeps the newest bars. Elements above BarCount, and fields that a short row does not have, keep what they
// held.
#pragma once

#include <optional>
#include <string_view>

#include "base/clock.h"
#include "base/failure.h"
#include "indicators/number_series.h"

namespace brantlow {

enum class Interval { Daily, Weekly, Monthly };

struct WorkingSeries {
    TextSeries QuoteDate;
    TextSeries QuoteTime;
    NumberSeries ClosePrice;
    NumberSeries LowPrice;
    NumberSeries HighPrice;
    NumberSeries Volume;
    NumberSeries PERatio;
    NumberSeries EPSttm;
    NumberSeries PEGRatio;
    NumberSeries EPSest;
    NumberSeries DividendPerShare;
    TextSeries DividendPayDate;
    TextSeries ExDividendDate;
    NumberSeries PreviousClose;
    NumberSeries Low52Week;
    NumberSeries High52Week;
    NumberSeries PriceToSales;
    NumberSeries MarketCap;  // millions
    NumberSeries OpenPrice;
    // Quote-table series that no loader fills; the foldings rewrite them all the same.
    NumberSeries AskPrice;
    NumberSeries BidPrice;

    std::size_t BarCount = 0;
    // Index of the newest bar after windowing.
    std::size_t LastBar = 0;
    // Index of the last row stored by the loader.
    std::size_t LastRowRead = 0;
};

// What the loaders need to know of the world: the database folder (ending in a separator) and the day.
struct HistorySource {
    const std::string& QuoteFolder;
    const Clock& clock;
    // Records after this day count as not there, and it takes the place of the day.
    std::optional<Date> lastDay = std::nullopt;

    Date NewestDay() const { return lastDay.value_or(clock.Today()); }
};

// Loads the four newest year files of `ticker` (this year's and the three before it), oldest first. The first
// row of each year overwrites the last row kept so far; a missing oldest year puts the first row at element
// 0. A missing file, or a ticker that can have no files, is no failure: BarCount is then 0 or 1. A file that
// is there and cannot be read is one, and the series stays as it was.
Failure LoadRecentSeries(const HistorySource& source, std::string_view ticker, WorkingSeries& series);

// The same with the twenty-one newest year files.
Failure LoadFullSeries(const HistorySource& source, std::string_view ticker, WorkingSeries& series);

// Keeps the newest `length` bars as elements 1 up: 0 means 279, less than 3 means 3, more than BarCount means
// all.
void WindowSeries(double length, WorkingSeries& series);

// Folds the loaded daily bars in place into bars of 5 (of 20), counted from the oldest, then keeps the newest
// 279. Highs and lows are compared with the next neighbour, not with a running extreme.
void MakeWeeklySeries(WorkingSeries& series);
void MakeMonthlySeries(WorkingSeries& series);

// The road that the selector and the batch tool take: one loader, one folding where needed, the default
// window.
Failure LoadSeriesFor(const HistorySource& source, std::string_view ticker, Interval interval,
                      WorkingSeries& series);

}  // namespace brantlow
