// The windows that an evaluation of past days would have looked at, for one ticker and the days of one
// calendar year: the year files up to that year are read once, and each day's window is a piece of them.
//
// For a ticker whose files are orderly (ticker_bars.h); any other has to be loaded anew for each day.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "indicators/history_text.h"
#include "indicators/working_series.h"
#include "selector/window_bars.h"

namespace brantlow {

class PastWindows {
  public:
    PastWindows(std::string quoteFolder, Interval interval)
        : quoteFolder_(std::move(quoteFolder)), interval_(interval) {}

    // Reads what days of `year` from `firstDay` on look at. Days are then looked at in rising order.
    Failure Load(std::string_view ticker, int year, std::int32_t firstDay);

    // False when the files have to be loaded anew for each day after all.
    bool IsPiecewise() const { return text_.IsRegular(); }

    // Makes `bars` look at the window of a day and returns its number of bars; of fewer than `fewest` bars
    // nothing is looked at.
    std::size_t LookAt(std::int32_t day, std::size_t fewest, WindowBars& bars);

  private:
    using Column = std::vector<double>;
    using Columns = std::array<Column, kNumberFields.size()>;

    void ReadRows(std::int32_t firstDay);
    void FoldWeeks();
    void FoldWeek(std::size_t index, std::size_t barCount);
    std::size_t Newest(std::int32_t day);
    static void Resize(Columns& columns, std::size_t barCount);
    static WindowColumns ViewOf(const Columns& columns, std::size_t barCount, std::size_t window);

    const std::string quoteFolder_;
    const Interval interval_;
    HistoryText text_;
    HistoryBar row_;
    std::size_t firstRow_ = 1;        // rows before it were not read
    std::vector<std::int32_t> days_;  // of rows firstRow_ up; a row without a date has that of the one above
    std::size_t newest_ = 0;          // of the day looked at last
    Columns daily_;                   // element 0 stands behind the margin
    Columns weekly_;
    std::size_t spoiledWeek_ = 0;  // holds a part of its days
};

}  // namespace brantlow
