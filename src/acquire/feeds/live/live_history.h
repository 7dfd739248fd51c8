// Filling the quote database from a live source: one ticker's history, and that of every ticker of a table. A
// ticker of which nothing came keeps what it has.
#pragma once

#include <string>
#include <vector>

#include "acquire/feeds/live/live_report.h"
#include "acquire/feeds/live/source_client.h"
#include "store/quote_table.h"

namespace brantlow {

// From this many tickers on the days of the whole market are asked for where a source has them.
inline constexpr std::size_t kMarketFromTickers = 51;

// What a run does beside asking the first source.
struct PopulateWith {
    // Asked for the tickers that the first does not know; may be null.
    const SourceDefinition* fallback = nullptr;
    // The settings that name the years are written with the histories.
    bool storesYears = false;
};

// The history of the years that the settings name, for the tickers in their order; those that can have no
// files are left out. Stops after the request under way when the run's control word asks for it: what came
// until then is stored. Status words and progress go to the session's person. All histories are one change
// that can be undone; where a file cannot be written nothing is changed, and the report has the fault alone.
//
// More than fifty tickers are fetched by days of the whole market where the source has them, newest first.
// Such days are kept in Data/Source Days until all are there, so that a later call goes on.
LiveReport PopulateFromSource(SourceWorld& world, const SourceDefinition& source,
                              const std::vector<std::string>& tickers, const PopulateWith& with = {});

// The same as a part of a change of files, which the caller commits.
LiveReport PreparePopulate(SourceWorld& world, const SourceDefinition& source,
                           const std::vector<std::string>& tickers, const PopulateWith& with,
                           FileChange& change);

// The days of the history that the settings ask for, today included.
struct DaySpan {
    std::chrono::sys_days from;
    std::chrono::sys_days to;
};
DaySpan WantedHistory(const Session& session);

// Puts what came of a ticker into the change and its basis; the number of days stored stands in the result.
LiveTicker StoreAnswer(SourceWorld& world, const SourceClient& client, const CapabilityForm& form,
                       const std::string& ticker, TickerAnswer answer, const std::vector<Path>& oldFiles,
                       class TickerBases& bases, FileChange& change, Failure& fault);

}  // namespace brantlow
