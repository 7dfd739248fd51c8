// The verdicts that look at what earlier tickers left in the series or in the indicators: those few tickers
// of a run are loaded in earnest, behind as many of the tickers before them as it takes.
//
// A ticker that writes every element up to an index makes the loads before it unnecessary. Where none stands
// near, or where such tickers are many, the whole run is made over again and goes on from there.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "indicators/prepared_ticker.h"
#include "indicators/series_pipeline.h"
#include "selector/ticker_verdict.h"
#include "selector/window_conditions.h"

namespace brantlow {

// What a verdict looks at beyond its ticker's own files.
struct LeftoversNeeded {
    // Rows of the series that the ticker writes in part; 0 where it writes all of them whole.
    std::size_t rows = 0;
    // The close of element 0 counts, which few tickers write.
    bool elementZero = false;
};

class LeftoverVerdicts {
  public:
    // All of them outlive this. `helpers` as in SeriesPipeline.
    LeftoverVerdicts(const HistorySource& source, const std::vector<std::string>& tickers,
                     std::span<const std::string> years, const WindowConditions& conditions,
                     std::size_t helpers);

    // The verdict on ticker `place` of the list, as a daily run with an empty series gives it. Places rise
    // from call to call.
    TickerVerdict Of(std::size_t place, const LeftoversNeeded& needed);
    // The run has been made over again: every further ticker is to be asked for here, which costs least.
    bool TakesAll() const { return run_.has_value(); }

  private:
    std::optional<std::size_t> FindCover(std::size_t place, std::size_t rows);
    TickerVerdict BehindCover(std::size_t cover, std::size_t place);
    TickerVerdict InWholeRun(std::size_t place);

    const HistorySource source_;
    const std::vector<std::string>& tickers_;
    const std::span<const std::string> years_;
    const WindowConditions& conditions_;
    const std::size_t helpers_;
    std::size_t covered_ = 0;  // verdicts behind a cover
    PreparedTicker candidate_;
    std::unique_ptr<Analysis> analysis_;
    std::size_t taken_ = 0;  // tickers of run_
    std::optional<SeriesPipeline> run_;
};

}  // namespace brantlow
