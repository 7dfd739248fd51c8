// The tickers of a long run, loaded and computed one after another into the shared Analysis, with threads
// that prepare the next ones ahead. The selector run takes it.
//
// After each Next the bars up to BarCount, the counters and the indicators are bit for bit what AnalyseTicker
// would have left; elements above BarCount are so too after Complete, which the destructor calls, unless the
// caller gave them up (leftovers.h). Nobody else
// may touch the Analysis meanwhile, but for reading it between two calls.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/ahead_of_turn.h"
#include "indicators/analysis.h"
#include "indicators/leftover_replay.h"
#include "indicators/leftovers.h"
#include "indicators/prepared_ticker.h"
#include "indicators/series_tails.h"

namespace brantlow {

// Whether nothing has ever been loaded into the series.
bool IsUntouched(const WorkingSeries& series);

class SeriesPipeline {
  public:
    // `helpers` threads work beside the caller's own. The source's folder and day are taken now.
    SeriesPipeline(const HistorySource& source, Interval interval, std::vector<std::string> tickers,
                   Analysis& analysis, std::size_t helpers = kThreadsOfMachine,
                   Leftovers leftovers = Leftovers::Kept);
    // Stops the threads wherever they are; tickers not asked for are left out.
    ~SeriesPipeline();
    SeriesPipeline(const SeriesPipeline&) = delete;
    SeriesPipeline& operator=(const SeriesPipeline&) = delete;

    // Analyses the next ticker of the list; false when there is none. One whose files cannot be read is
    // passed over as though it stood not in the list.
    bool Next();
    // Why the files of the last ticker could not be read; none where they could.
    const Failure& Unreadable() const { return unreadable_; }
    // Stores the bars above BarCount that are still outstanding.
    void Complete() { tails_.StoreAll(analysis_.series); }

  private:
    void Prepare(std::string_view ticker, PreparedTicker& prepared) const;
    Failure Merge(std::string_view ticker, PreparedTicker& prepared);
    Failure MergeNewest(std::string_view ticker, PreparedTicker& prepared);

    const std::string quoteFolder_;
    const FixedClock clock_;
    const std::optional<Date> lastDay_;
    const Interval interval_;
    const std::vector<std::string> tickers_;
    const std::vector<std::string> years_;
    Analysis& analysis_;
    Failure unreadable_;
    SeriesTails tails_;
    // The foldings rewrite ask and bid prices as well, which a ticker prepared ahead knows nothing of.
    const bool foldsAskAndBid_;
    // Set where older files are left unread.
    std::optional<LeftoverReplay> replay_;

    std::optional<AheadOfTurn<PreparedTicker>> ahead_;
};

}  // namespace brantlow
