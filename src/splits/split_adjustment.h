// Restating a ticker's history after a split, so that charts and studies see no false gap. The menus, the
// split calendar and the batch tool call it.
//
// No date is trusted from outside: the day of the split is the most recent jump of the closes that fits the
// factor. Once the history is restated the jump is gone, so that a second run finds nothing.
#pragma once

#include <cstddef>
#include <string_view>
#include <system_error>

#include "indicators/working_series.h"

namespace brantlow {

// The last bar before the most recent jump that fits `SplitFactor`; 0 when there is none, or no band for the
// factor. A day whose close, or whose day before's close, is 0 is passed over.
std::size_t FindSplit(const WorkingSeries& series, double SplitFactor);

// Restates the bars 1 to `SplitIndex`: prices, earnings per share and the dividend are divided by the factor,
// the volume is multiplied by it.
void RestateBars(std::size_t SplitIndex, double SplitFactor, WorkingSeries& series);

struct SplitAdjustment {
    // The last bar before the split; 0 when no jump fits, and then no file was touched.
    std::size_t SplitIndex = 0;
    std::error_code error;  // set when a file could not be read, and then none was touched, or not written
};

// Loads `ticker` into `series`, and when a jump fits the factor writes the restated series as the ticker's
// whole history: what the loader leaves out (the last day of each year but the newest, the oldest day, files
// older than it reads) is gone then, and so are days whose close is, or rounds to, 0. When a file cannot be
// written, those of older years stay as they are and a further call goes on from there.
SplitAdjustment AdjustForSplit(const HistorySource& source, std::string_view ticker, double SplitFactor,
                               WorkingSeries& series);

}  // namespace brantlow
