#include "indicators/analysis.h"

namespace brantlow {

void AnalyseTicker(const HistorySource& source, std::string_view ticker, Interval interval,
                   Analysis& analysis) {
    LoadSeriesFor(source, ticker, interval, analysis.series);
    if (HasBarsToEvaluate(analysis.series)) ComputeIndicators(analysis.series, analysis.indicators);
}

}  // namespace brantlow
