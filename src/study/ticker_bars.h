// The bars of one ticker that a study can evaluate, trade and hold: the records of its year files by their
// dates, or weekly bars folded of them, and whether the files are in such order that a past day is a mere
// shorter piece of them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "base/files.h"
#include "indicators/line_scan.h"
#include "indicators/working_series.h"
#include "study/study_days.h"

namespace brantlow {

struct TickerBar {
    StudyDay day;
    double close = 0;
};

class TickerBars {
  public:
    TickerBars(std::string quoteFolder, const Date& today, DayWritings& writings)
        : quoteFolder_(std::move(quoteFolder)), today_(today), writings_(writings) {}

    // Reads the year files of `ticker`, given in any order; others of its files are passed over. Keeps the
    // bars from `from` to today, oldest file first; of several bars of one date the last. A file that cannot
    // be read is a failure, and no bar is kept then.
    Failure Load(std::string_view ticker, std::span<const Path> files, Interval interval, const Date& from);

    const std::vector<TickerBar>& Bars() const { return bars_; }
    // Every record is whole, stands in the file of its year and in the order of days, the first of each file
    // with a readable one. A look back then keeps the first so many records and drops the rest.
    bool IsOrderly() const { return orderly_; }

  private:
    Failure TakeFile(const Path& file, int year);
    void TakeRecord(std::string_view line, int year);
    Failure TakeWeeks(std::string_view ticker);
    void KeepFrom(std::int32_t first);

    const std::string quoteFolder_;
    const Date today_;
    DayWritings& writings_;
    std::vector<TickerBar> bars_;
    bool orderly_ = true;
    std::int32_t dayBefore_ = 0;  // of the file in hand; its year's first record has none
    bool hasDayBefore_ = false;
    std::string buffer_;
    std::vector<LineSpan> lines_;
};

}  // namespace brantlow
