// A history out of days of the whole market: for sources that tell all tickers of a day in one reply. The
// days are fetched newest first and kept as files until all are there, so that a run that was stopped goes
// on.
#pragma once

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "acquire/feeds/live/live_asking.h"
#include "acquire/feeds/live/source_client.h"
#include "base/file_change.h"

namespace brantlow {

inline constexpr const char* kSourceDaysFolder = "Source Days";

struct MarketDaysEnd {
    bool isComplete = false;
    // Why it is not.
    SourceOutcome outcome;
    // "412 of 521 days are there; ..." for a person; empty when all are.
    std::string unfinished;
    Failure fault;
};

class MarketDays {
  public:
    MarketDays(SourceWorld& world, SourceClient& client, const std::vector<std::string>& tickers);

    // Fetches the days of the span that are not there yet, newest first, then the splits of the span. A day
    // that is not published yet is left out, and days that the plan does not hold end the span.
    MarketDaysEnd Fetch(std::chrono::sys_days from, std::chrono::sys_days to);

    // Hands on the days of each ticker, restated for the splits, from the newest day on as far as there is no
    // gap. A ticker with no row in any day is unknown.
    void ForEachTicker(const TakeAnswer& take);

    // Deletes the files of the days.
    void Forget();

  private:
    Path DayFile(std::chrono::sys_days day) const;
    bool HasDay(std::chrono::sys_days day) const;
    SourceOutcome FetchDay(std::chrono::sys_days day, Failure& fault);
    void ShowLeft(std::size_t done, std::size_t count);
    SourceOutcome FetchSplits(std::chrono::sys_days from, std::chrono::sys_days to);
    void ReadDay(std::chrono::sys_days day, std::size_t first, std::size_t end,
                 std::vector<SourceBars>& bars) const;

    SourceWorld& world_;
    SourceClient& client_;
    std::vector<std::string> tickers_;
    // The ticker's place by its spelling at the source.
    std::unordered_map<std::string, std::size_t> places_;
    Path folder_;
    std::string mark_;                         // of the set of tickers, as the first line of each file
    std::vector<std::chrono::sys_days> days_;  // there, newest first
    std::unordered_map<std::string, std::vector<SourceSplit>> splits_;
};

}  // namespace brantlow
