// Histories out of a downloaded archive or folder, one text file a ticker, into the quote database. A history
// that comes takes the place of all files that its ticker had, as a populated one does: their prices are
// adjusted for splits and dividends, and days of another basis never stand beside them in one series. What
// the histories are is kept for the live sources (live/ticker_basis.h), which add no unadjusted days to them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "acquire/feeds/archives/import_choice.h"
#include "shell/run_report.h"
#include "shell/session.h"

namespace brantlow {

// The name under which their basis is kept.
inline constexpr std::string_view kArchiveSource = "stooq";
// What the prices are, behind the line of a run that stored some.
inline constexpr const char* kArchiveBasisWords = "prices adjusted for splits and dividends";

ImportOutlook LookIntoArchive(const Session& session, const HistoryImportChoice& choice);

struct HistoryImport {
    std::size_t histories = 0;  // stored
    std::size_t days = 0;       // of these
    bool stopped = false;
    Failure fault;  // the archive cannot be read or a file cannot be written: nothing was changed
    RunReport report;
};

// Imports, as one change that can be undone. Stops before the next file when the run's control word asks for
// it: what came until then is stored. A file that is refused costs its ticker alone, and is told with its
// name and line; a wanted ticker without a file is told as unknown.
HistoryImport ImportHistories(Session& session, const HistoryImportChoice& choice);

}  // namespace brantlow
