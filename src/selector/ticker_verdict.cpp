#include "selector/ticker_verdict.h"

namespace brantlow {

TickerVerdict VerdictOn(const Analysis& analysis, const CompiledConditions& conditions) {
    TickerVerdict verdict;
    verdict.BarCount = analysis.series.BarCount;
    if (!HasBarsToEvaluate(analysis.series)) return verdict;
    verdict.holds = conditions.Judge(analysis);
    const std::size_t bar = analysis.series.LastBar;
    const NumberSeries& trend = analysis.indicators.*kShortTrendArray;
    verdict.trend = TrendOf(trend[bar], trend[bar - 1]);
    return verdict;
}

}  // namespace brantlow
