// What became of each ticker of a run over a live source, and the sentences that tell it: "41 of 43 from
// Massive, 2 unknown", and a line for each kind of failure.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "acquire/feeds/live/source_outcome.h"
#include "base/file_change.h"
#include "shell/run_report.h"

namespace brantlow {

struct LiveTicker {
    std::string ticker;
    SourceOutcome outcome;
    std::size_t days = 0;  // new ones
};

struct LiveReport {
    std::string title;  // of the source
    std::vector<LiveTicker> tickers;
    bool stopped = false;
    // Not everything is there yet; the next call goes on. Told in words.
    std::string unfinished;
    // What else a person is to be told, a line each.
    std::vector<std::string> remarks;
    Failure fault;  // the first file that could not be read or written

    std::size_t Count(SourceResult result) const;
    // Tickers for which rows came; failed ones, which are not answered.
    std::size_t Answered() const { return Count(SourceResult::Rows); }
    std::size_t Failed() const;
};

// "41 of 43 from Massive, 2 unknown, 1 failed".
std::string ReportSummary(const LiveReport& report);

// "3 tickers from Massive failed (A, B, C): network: ..." for each kind.
std::vector<std::string> ReportFailures(const LiveReport& report);

// The same for the line of a run and the list of its tickers. `what` heads the list.
RunReport RunReportOf(const LiveReport& report, std::string what);

}  // namespace brantlow
