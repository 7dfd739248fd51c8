// The practice table: real prices of a few dozen tickers, moved to the days before today, as a quote table
// and its history. A new user has something to try, and the tests have real input. The batch tool's
// `practice` and the first start call it; practice_prices.h holds the prices and how they move.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/dates.h"
#include "base/file_change.h"

namespace brantlow {

inline constexpr std::string_view kPracticeTable = "Practice.ddq";

// Where the practice table goes.
struct PracticeTarget {
    ChangePlace place;        // of the change that the filling is; one over what is there can be undone
    Path dataFolder;          // takes Practice.ddq
    std::string quoteFolder;  // takes the year files; ends in a separator
    Date today;
    bool replace = false;  // write over what is there
};

enum class PracticeOutcome {
    Filled,
    AlreadyThere,  // year files of these tickers, or the table itself; nothing was changed
    NoPrices,      // the installation's prices cannot be read; nothing was changed
    Failed,        // a file could not be written; nothing was changed
};

// Prices that are missing or hold nothing.
std::string NoPracticePrices(const Path& place);

struct PracticeResult {
    PracticeOutcome outcome = PracticeOutcome::Filled;
    // The names of the files or tickers that are already there; else the whole sentence.
    std::string detail;
    std::size_t tickers = 0;
    std::size_t days = 0;  // records written
};

// What would keep FillPractice from filling the target; Filled when nothing would. Changes nothing.
PracticeResult CheckPractice(const Path& practiceFolder, const PracticeTarget& target);

// Checks, then fills the target, folders included. Every ticker's dates move by whole weeks, so that its last
// day is today or one of the six days behind it; only what lies before today is written. NFLX moves so that
// its 7-for-1 split falls within the seven days before today, with the earlier prices as they were traded.
// All files are one change.
PracticeResult FillPractice(const Path& practiceFolder, const PracticeTarget& target);

}  // namespace brantlow
