// The indicator pass itself, from bars to a block of results, for ComputeIndicators and for the threads that
// prepare tickers ahead.
#pragma once

#include <cstddef>

#include "indicators/indicator_block.h"

namespace brantlow {

// A series of this many bars or fewer has no indicators.
inline constexpr std::size_t kTooFewBars = 3;

// The bars of one ticker; every pointer addresses element 0.
struct BarView {
    std::size_t BarCount;
    const double* ClosePrice;
    const double* LowPrice;
    const double* HighPrice;
    const double* Volume;
    const double* PERatio;
    const double* EPSttm;
    const double* EPSest;
    const double* PriceToSales;
    const double* MarketCap;
};

BarView ViewOf(const WorkingSeries& series);

// Computes all but what hangs on the close of element 0, which ComputeBlock does not read. `old` as in
// IndicatorBlock::Settled. Needs more than kTooFewBars bars.
void ComputeBlock(const BarView& bars, const Indicators* old, IndicatorBlock& block);

// The rest: the ratios of bar 1 and the first bar of each relative strength, whose previous close is element
// 0.
void StoreFirstBars(const BarView& bars, Indicators& indicators);

}  // namespace brantlow
