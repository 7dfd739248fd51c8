// The update list, QuoteList.ddq in the quote database's folder: which tickers the last update touched.
//
// A first line holds the number of tickers, each further line one ticker in double quotes. An update writes
// the list anew once its days are stored; an import only appends tickers. Despite its name it is no table.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/files.h"

namespace brantlow {

Path UpdateListPath(const std::string& quoteFolder);

// True when a list was deleted.
bool DeleteUpdateList(const std::string& quoteFolder);
// The line with the number of tickers: the table's row count without the header.
std::string UpdateCountLine(std::size_t tickerCount);
// The line of a ticker.
std::string UpdatedTickerLine(std::string_view ticker);

struct UpdateList {
    ReadOutcome outcome = ReadOutcome::Missing;
    std::error_code error;  // set when Failed
    // As many tickers as the first line says, fewer where the list is shorter.
    std::vector<std::string> tickers;
};

// A first line that is no number counts as 0.
UpdateList ReadUpdateList(const std::string& quoteFolder);

}  // namespace brantlow
