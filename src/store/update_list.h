// The update list, QuoteList.ddq in the quote database's folder: which tickers the last update touched.
//
// A first line holds the number of tickers, each further line one ticker in double quotes. An update deletes
// the list at its start and writes it anew; an import only appends tickers. Despite its name it is no table.
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
// Appends the line with the number of tickers: the table's row count without the header.
std::error_code AppendUpdateCount(const std::string& quoteFolder, std::size_t tickerCount);
// Appends a ticker to the list at UpdateListPath, which an import keeps open for its tickers.
std::error_code AppendUpdatedTicker(GrowingFile& list, std::string_view ticker);

struct UpdateList {
    ReadOutcome outcome = ReadOutcome::Missing;
    // As many tickers as the first line says, fewer where the list is shorter.
    std::vector<std::string> tickers;
};

// A first line that is no number counts as 0.
UpdateList ReadUpdateList(const std::string& quoteFolder);

}  // namespace brantlow
