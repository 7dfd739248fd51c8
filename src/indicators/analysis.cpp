#include "indicators/analysis.h"

namespace brantlow {

HistorySource HistoryOf(const Session& session) {
    return {session.settings.QuoteFolder, session.clock, session.HistoryUpTo};
}

Failure AnalyseTicker(const HistorySource& source, std::string_view ticker, Interval interval,
                      Analysis& analysis) {
    if (Failure failure = LoadSeriesFor(source, ticker, interval, analysis.series)) return failure;
    if (HasBarsToEvaluate(analysis.series)) ComputeIndicators(analysis.series, analysis.indicators);
    return {};
}

}  // namespace brantlow
