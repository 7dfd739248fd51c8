// What is to be imported out of a downloaded archive, and what that would do.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/failure.h"

namespace brantlow {

struct HistoryImportChoice {
    Path from = {};
    // The tickers to take; nothing for all that are there.
    std::optional<std::vector<std::string>> tickers = {};
    // The newest years alone; 0 for all of them.
    int years = 0;
    // Whether a history goes too that has newer days than the one that comes.
    bool replacesNewer = false;
};

// What an import would do, by the names of the files.
struct ImportOutlook {
    std::size_t histories = 0;  // that are there and wanted
    std::size_t stored = 0;     // of these, tickers that have a history now
    Failure fault;
};

}  // namespace brantlow
