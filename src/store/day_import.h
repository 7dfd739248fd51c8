// The end-of-day import: the quotes that an update accepted go from Import.Txt to the quote database.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "shell/session.h"
#include "store/day_store.h"
#include "store/quote_table.h"

namespace brantlow {

struct DayImport {
    std::size_t lines = 0;        // records read
    std::size_t stored = 0;       // days appended or replaced
    std::size_t failed = 0;       // days that could not be stored, the others are
    Failure error;                // the first failure; without a day that failed nothing was stored
    std::vector<Path> halfLines;  // year files whose last line had been cut off; it is gone
    // What became of each ticker's day; of several days of one ticker the last.
    std::unordered_map<std::string, StoredDay> byTicker;
};

// Stores the records of Import.Txt, at most as many as `table` has tickers: entries are numbered by line and
// carry their own tickers. Only what the file holds is stored. The days, the new update list and the end
// of the file are one change: where it breaks off, nothing is stored. A day that cannot be stored while
// others can leaves Import.Txt in place and its ticker out of the list. A missing file stores nothing. Status
// words, progress and waiting events go to the session's person.
DayImport ImportEndOfDay(Session& session, const QuoteTable& table, DayStore& days);

}  // namespace brantlow
