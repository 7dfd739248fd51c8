// Restating a ticker's history after a split, so that charts and studies see no false gap. The menus, the
// split calendar and the batch tool call it.
//
// No date is trusted from outside: the day of the split is the most recent jump of the closes that fits the
// factor. Once the history is restated the jump is gone, so that a second run finds nothing.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "base/file_change.h"
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
    // A file that could not be read (FailureKind::Read, List), and then nothing was prepared, or not written:
    // the caller's change is not to be committed.
    Failure error = {};
    // Year files that had a line at their end that was cut off (store/year_growth.h). It counts as no day,
    // and is gone where the history was restated.
    std::vector<Path> halfLines = {};

    bool IsUnread() const { return error.kind == FailureKind::Read || error.kind == FailureKind::List; }
};

// Loads `ticker` into `series`, and when a jump fits the factor prepares the restated series as the ticker's
// whole history in `change`, which the caller commits: what the loader leaves out (the last day of each year
// but the newest, the oldest day, files older than it reads) is gone then, and so are days whose close is, or
// rounds to, 0. What was drawn by hand into the ticker's chart (store/hand_drawings.h, in `dataFolder`) is
// restated with it; where that cannot be read, neither is.
SplitAdjustment PrepareSplit(const HistorySource& source, const Path& dataFolder, std::string_view ticker,
                             double SplitFactor, WorkingSeries& series, FileChange& change);

// The same in the data folder of `place` as a change of its own, which can be undone: wholly or, with an
// error, not at all.
SplitAdjustment AdjustForSplit(const HistorySource& source, const ChangePlace& place, std::string_view ticker,
                               double SplitFactor, WorkingSeries& series);

}  // namespace brantlow
