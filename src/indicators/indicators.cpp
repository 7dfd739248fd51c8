#include "indicators/indicators.h"

#include "base/numbers.h"
#include "indicators/indicator_pass.h"

namespace brantlow {

void ComputeIndicators(const WorkingSeries& series, Indicators& indicators) {
    static_cast<IndicatorScalars&>(indicators) = {};
    if (series.BarCount <= kTooFewBars) return;
    const BarView bars = ViewOf(series);
    IndicatorBlock block;
    ComputeBlock(bars, &indicators, block);
    block.Store(indicators);
    StoreFirstBars(bars, indicators);
}

double PercentChangeAt(const Indicators& indicators, std::size_t i) {
    return RoundToGeneralForm(indicators.PercentChange[i]);
}

}  // namespace brantlow
