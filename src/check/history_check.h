// Looks through the whole quote database: every year file of every ticker, on as many threads as the computer
// has, and then each ticker's days against those of the others.
#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "base/dates.h"
#include "base/failure.h"
#include "check/finding.h"
#include "check/year_file_mend.h"

namespace brantlow {

struct HistoryTerms {
    std::string quoteFolder;
    Date today;
    // The tickers of the quote tables; a history of none of them is noted unless this is empty.
    std::set<std::string, std::less<>> tickers;
    // Repaired files are kept in HistoryCheck::mended; without it it is only seen what can be repaired.
    bool repairs = false;
};

struct HistoryCheck {
    std::vector<Finding> findings;  // by ticker, oldest year first
    std::vector<YearText> mended;
    std::size_t files = 0;
    std::set<std::string, std::less<>> withHistory;  // the tickers that have files
    Failure failure;  // the folder could not be looked through: nothing was checked
    bool stopped = false;
};

// `proceed` is called on the caller's thread from time to time with the share that is done, 0 to 1; false
// ends the check.
HistoryCheck CheckHistories(const HistoryTerms& terms, const std::function<bool(double)>& proceed);

}  // namespace brantlow
