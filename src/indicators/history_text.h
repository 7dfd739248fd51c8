// The year files of one ticker in memory, as rows by bar index, before anything is stored in the working
// series. Threads that prepare tickers ahead read through it; bars above the window stay in it unread.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "base/failure.h"
#include "indicators/history_row.h"
#include "indicators/line_scan.h"

namespace brantlow {

// One bar with every field, as the loader and a folding leave it.
struct HistoryBar {
    HistoryRow row;
    bool openEmptied = false;
};

class HistoryText {
  public:
    // Reads the files of `ticker` for `years`, oldest first, in place of what is held; with a `lastDay`
    // without the records after it. A file that is there and cannot be read is a failure, and nothing is held
    // then.
    Failure Load(const std::string& quoteFolder, std::string_view ticker, std::span<const std::string> years,
                 const std::optional<Date>& lastDay);

    // The same without reading more than the newest `bars` daily bars ask for, where the files let that be:
    // IsPartial tells whether older rows were left out, and bars are then counted from the oldest one held.
    // Every row held has all its fields then, and element 0 is not the ticker's.
    Failure LoadNewest(const std::string& quoteFolder, std::string_view ticker,
                       std::span<const std::string> years, std::size_t bars);
    bool IsPartial() const { return partial_; }

    // Every row has all its fields and there is room behind the last one: the load does not depend on what
    // the working series held before. The members below are of use only then.
    bool IsRegular() const { return regular_; }

    // Index of the newest row, LastRowRead of the load.
    std::size_t BarCount() const { return barCount_; }
    // The oldest year has no rows, so the first row stands at element 0.
    bool HasElementZero() const { return !rows_.empty() && firstIndex_ == 0; }
    // The newest year has no rows, which takes the open of the newest bar.
    bool NewestOpenEmptied() const { return newestOpenEmptied_; }

    // Bars after folding, before windowing.
    std::size_t BarCount(Interval interval) const;
    // Element `index` after loading and folding: a folded bar, or the daily row above the folded ones. The
    // bar's texts live as long as what is held.
    void Bar(Interval interval, std::size_t index, HistoryBar& bar) const;
    // The daily row of element `index` without its line end.
    std::string_view Row(std::size_t index) const;

    // Gives back the memory of an unusually long history.
    void TrimMemory();

  private:
    void Forget();
    bool TryNewest(const std::string& quoteFolder, std::string_view ticker,
                   std::span<const std::string> years, std::size_t bars);
    void AddYear(std::size_t from, std::size_t to);
    void DailyBar(std::size_t index, HistoryBar& bar) const;

    std::string buffer_;
    std::size_t used_ = 0;
    std::vector<LineSpan> rows_;  // of elements firstIndex_ up
    std::size_t firstIndex_ = 1;
    std::size_t barCount_ = 0;
    bool newestOpenEmptied_ = false;
    bool regular_ = true;
    bool partial_ = false;
};

}  // namespace brantlow
