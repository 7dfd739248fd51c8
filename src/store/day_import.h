// The end-of-day import: the quotes that an update accepted go from Import.Txt to the quote database.
#pragma once

#include <cstddef>
#include <string>
#include <system_error>
#include <unordered_map>

#include "shell/session.h"
#include "store/day_store.h"
#include "store/quote_table.h"

namespace brantlow {

struct DayImport {
    std::size_t lines = 0;   // records read
    std::size_t stored = 0;  // days appended or replaced
    std::error_code error;   // the first failure to write a year file
    // What became of each ticker's day; of several days of one ticker the last.
    std::unordered_map<std::string, StoredDay> byTicker;
};

// Stores the records of Import.Txt, at most as many as `table` has tickers: entries are numbered by line and
// carry their own tickers. Only what the file holds is stored. The file is deleted once every day is stored;
// one that could not be stored leaves it in place. A missing file stores nothing. Status words, progress and
// waiting events go to the session's person.
DayImport ImportEndOfDay(Session& session, const QuoteTable& table, DayStore& days);

}  // namespace brantlow
