// What a selector run says of one ticker's newest bar.
#pragma once

#include <cstddef>

#include "base/failure.h"
#include "indicators/analysis.h"
#include "selector/evaluation.h"
#include "selector/test_state.h"

namespace brantlow {

// Where the short trend goes from the bar before.
inline constexpr IndicatorArray kShortTrendArray = &Indicators::MLRDer15;
enum class ShortTrend : unsigned char { Level, Rising, Falling };

constexpr ShortTrend TrendOf(double today, double yesterday) {
    if (today > yesterday) return ShortTrend::Rising;
    return today < yesterday ? ShortTrend::Falling : ShortTrend::Level;
}

struct TickerVerdict {
    // Why its files could not be read; nothing is said of the ticker then.
    Failure unreadable;
    std::size_t BarCount = 0;
    BarVerdicts holds = 0;
    // Of a ticker for which some condition holds.
    ShortTrend trend = ShortTrend::Level;
};

// The verdict on the ticker that stands in the series.
TickerVerdict VerdictOn(const Analysis& analysis, const CompiledConditions& conditions);

}  // namespace brantlow
