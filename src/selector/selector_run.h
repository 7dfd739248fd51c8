// The selector run: every ticker of an evaluation table is loaded on the chosen interval and judged by the
// ten conditions; hits stand in the table's cells afterwards, coloured. The window and the batch tool both
// open the evaluation table, call RunSelector and save or show what it left.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "indicators/analysis.h"
#include "indicators/leftovers.h"
#include "shell/run_report.h"
#include "shell/session.h"
#include "shell/settings/condition_set.h"
#include "store/quote_table.h"

namespace brantlow {

inline constexpr std::string_view kSelectorNeedsQuoteFile =
    "To run Stock Selector, you will need to open an End of Day Quote File";

// The interval of this exact word, "Daily", "Weekly" or "Monthly", or nothing.
std::optional<Interval> IntervalOf(std::string_view word);

// And back.
std::string_view WordOf(Interval interval);

// Bars below which a ticker's history counts as short on this interval.
std::size_t MinimumHistory(Interval interval);
// The first line of a report on short tickers.
std::string_view ShortHistoryReason(Interval interval);

struct SelectorOutcome {
    // Rows that were walked, short ones included.
    std::size_t tickers = 0;
    // Elements 1 to 10: tickers for which the condition held.
    std::array<std::size_t, kConditionCount + 1> hitsPerCondition{};
    // In table order, one entry a row.
    std::vector<std::string> shortTickers;
    // Whether the run left "Error Report.txt" alone, as one that looks back does.
    bool looksBack = false;
    // In table order: why a ticker's files could not be read. It has no hits then and is not counted as
    // short.
    std::vector<Failure> unreadable;
    // The run was ended before its last row.
    bool stopped = false;
    // Why "Error Report.txt" could not be written, if it could not.
    Failure reportError;
};

// Walks rows 1 to the last of `evaluations`, whose column c takes the action of condition c where it holds;
// other cells stay as they are. Status words, row numbers and progress go to the session's person, the row in
// work to session.run.CurrentRow (0 again at the end) and meanwhile its ticker to session.CurrentTicker; a
// stop ends the run before the next row and keeps what was found. `analysis` holds the last ticker
// afterwards, and above it what `leftovers` says. "Error Report.txt" is written when a ticker was short,
// unless the run looks back, and left alone otherwise.
//
// With `lastDay` history after that day counts as not there, as for a session that looks back.
void RunSelector(Session& session, Analysis& analysis, Interval interval, QuoteTable& evaluations,
                 SelectorOutcome& outcome, std::optional<Date> lastDay = std::nullopt,
                 Leftovers leftovers = Leftovers::Kept);

// What a run did in a line: "43 tickers, 61 hits", of one that was ended "26 of 43 tickers, 30 hits,
// stopped". `source` is the quote file, `rows` the tickers of its table.
RunReport ReportOf(const SelectorOutcome& outcome, const std::string& source, std::size_t rows);

// What a run leaves behind beside the verdicts: the day up to which it looked, its interval and the quote
// file `source`.
TableOrigin OriginOfRun(const Session& session, Interval interval, std::string source,
                        std::optional<Date> lastDay = std::nullopt);

}  // namespace brantlow
