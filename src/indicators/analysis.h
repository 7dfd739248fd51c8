// The one working series and the indicators computed from it. Each main owns one Analysis and passes it by
// reference; tickers are loaded into it one after another.
#pragma once

#include "indicators/indicators.h"
#include "indicators/working_series.h"
#include "shell/session.h"

namespace brantlow {

struct Analysis {
    WorkingSeries series;
    Indicators indicators;
};

// The history as the session sees it.
HistorySource HistoryOf(const Session& session);

// Series of this many bars or fewer are not evaluated, and nothing is computed for them.
inline constexpr std::size_t kTooFewBarsToEvaluate = 15;

inline bool HasBarsToEvaluate(const WorkingSeries& series) {
    return series.BarCount > kTooFewBarsToEvaluate;
}

// Loads a ticker on an interval and, where it has bars to evaluate, computes its indicators. Nothing is
// stored of a ticker whose files cannot be read.
Failure AnalyseTicker(const HistorySource& source, std::string_view ticker, Interval interval,
                      Analysis& analysis);

}  // namespace brantlow
