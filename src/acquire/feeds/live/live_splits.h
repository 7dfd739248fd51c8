// Splits that a live source tells: the stored history of each ticker is restated once for each split behind
// the day up to which splits are in it, and the split is logged.
#pragma once

#include <string>
#include <vector>

#include "acquire/feeds/live/source_client.h"
#include "acquire/feeds/live/ticker_basis.h"
#include "base/failure.h"
#include "base/file_change.h"

namespace brantlow {

// A line for each split that was put into a history: day, ticker, factor, days restated.
inline constexpr const char* kSourceSplitsName = "Source Splits.txt";

struct AppliedSplit {
    std::string ticker;
    SourceSplit split;
    std::size_t days = 0;              // restated
    std::vector<Path> halfLines = {};  // restated files whose last line had been cut off; it is gone
};

// Restates the history of `ticker` for those of `splits` that are not in it and whose day has come. A history
// of unknown origin is restated where its prices jump at the split's day and the factor takes the jump away.
// `newBars` are days that are to follow the stored ones, on the basis of today.
Failure ApplySplits(Session& session, const std::string& ticker, std::vector<SourceSplit> splits,
                    const std::vector<SourceBar>& newBars, TickerBases& bases, FileChange& change,
                    std::vector<AppliedSplit>& applied);

// Puts the applied splits' log and the bases into the change and carries it out.
Failure CommitSplits(Session& session, const TickerBases& bases, const std::vector<AppliedSplit>& applied,
                     FileChange& change);

struct LiveSplitCheck {
    SourceOutcome outcome;
    std::size_t told = 0;  // splits of the span, of any ticker
    std::vector<AppliedSplit> applied;
    Failure fault;
};

// Asks the source for the splits since the oldest history that may lack one, at most a year back, and applies
// them to the given tickers. Everything changes at once, or nothing.
LiveSplitCheck CheckLiveSplits(SourceWorld& world, const SourceDefinition& source,
                               const std::vector<std::string>& tickers);

// "KO: split 2 for 1 on 2026-11-18, 512 days restated", and what was cut off before.
std::string SplitSentence(const AppliedSplit& applied);

// The tickers that have a file in the database; none where `failure` says why.
std::vector<std::string> StoredTickers(const std::string& quoteFolder, Failure& failure);

}  // namespace brantlow
