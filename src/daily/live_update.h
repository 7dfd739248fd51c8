// The end-of-day update from live sources: the newest complete day of every ticker of the open table fills
// its row and Import.Txt, days that were missed since the newest stored one are kept for the database, and
// the bar of a day that is not over is shown and never stored. daily_update.h has the flow around it.
#pragma once

#include <string>
#include <vector>

#include "acquire/feeds/live/live_report.h"
#include "acquire/feeds/live/live_splits.h"
#include "acquire/feeds/live/source_client.h"
#include "daily/update_quotes.h"
#include "store/history_record.h"

namespace brantlow {

// The sources that an update asks; null for those that are not chosen.
struct LiveSources {
    SourceWorld& world;
    const SourceDefinition* quotes = nullptr;
    // For the split check; that of the quotes serves where it can tell splits.
    const SourceDefinition* splits = nullptr;
    // For tickers that the first does not know.
    const SourceDefinition* fallback = nullptr;
    // For the cells of the table that no quote fills; asked also behind the standard source.
    const SourceDefinition* fundamentals = nullptr;
};

// Days behind a ticker's stored ones, but for the newest, which Import.Txt holds.
struct MissedDays {
    std::string ticker;
    std::vector<SourceBar> bars;  // oldest first
    // Splits among them or since the stored days, which the bars are past already.
    std::vector<SourceSplit> splits;
};

struct LiveUpdate {
    UpdateOutcome outcome;
    LiveReport report;
    std::vector<MissedDays> missed;
    std::size_t stored = 0;  // missed days that entered the files
    std::vector<AppliedSplit> applied;
};

// Needs work.live with its quotes. Tickers that are there twice are asked once. Rows, progress and beeps go
// to the session's person.
LiveUpdate UpdateFromSource(const UpdateWork& work);

// Restates the histories for the splits that came with the days, then puts the missed days behind them, all
// or none. Files whose last line had been cut off are added to `halfLines`: it is gone. After a fault the
// newest days may not be stored either: the missed ones would stand before the stored ones for ever.
Failure StoreMissedDays(const LiveSources& sources, LiveUpdate& update, std::vector<Path>& halfLines);

// The split check of the table's tickers; needs work.live with its splits.
LiveSplitCheck CheckSplitsOfTable(const UpdateWork& work);

}  // namespace brantlow
