#include "selector/value_slots.h"

#include <array>
#include <cmath>

#include "base/numbers.h"
#include "selector/named_test.h"

namespace brantlow {
namespace {

// Scales a slope in price per bar over a price to percent per 240 bars.
constexpr double kYearlyPercent = 24000;

// What a slot compares with its number.
struct SlotValue {
    enum class Outcome : unsigned char { Skipped, Failed, BelowGuard, Computed };
    Outcome outcome = Outcome::Skipped;
    double value = 0;
};

constexpr SlotValue kSkipped{SlotValue::Outcome::Skipped};
constexpr SlotValue kFailed{SlotValue::Outcome::Failed};
constexpr SlotValue kBelowGuard{SlotValue::Outcome::BelowGuard};

SlotValue Computed(std::optional<double> value) {
    if (!value || !std::isfinite(*value)) return kFailed;
    return {SlotValue::Outcome::Computed, *value};
}

template <StoredArray kArray>
SlotValue Stored(const Analysis& analysis, std::size_t bar) {
    return Computed((analysis.series.*kArray)[bar]);
}

template <IndicatorArray kArray>
SlotValue Indicator(const Analysis& analysis, std::size_t bar) {
    return Computed((analysis.indicators.*kArray)[bar]);
}

// The change as its text reads, rounded to fifteen digits: a rise from 20 to 31 is 55, not a little more.
SlotValue PriceChange(const Analysis& analysis, std::size_t bar) {
    return Computed(PercentChangeAt(analysis.indicators, bar));
}

SlotValue ShareOfAverageVolume(const Analysis& analysis, std::size_t bar) {
    if (analysis.indicators.AverageVolume == 0) return kSkipped;
    return Computed(Divide(analysis.series.Volume[bar], analysis.indicators.AverageVolume));
}

// The divisor is the close `kLength` bars back, one bar older than the window of the slope. At the bar where
// that is element 0 the guard decides; before it the look-back itself fails.
template <IndicatorArray kSlope, std::size_t kLength>
SlotValue RegressionSlope(const Analysis& analysis, std::size_t bar) {
    if (bar < kLength) return kFailed;
    if (bar == kLength) return kBelowGuard;
    return Computed(Divide((analysis.indicators.*kSlope)[bar] * kYearlyPercent,
                           analysis.series.ClosePrice[bar - kLength]));
}

SlotValue WindowSlope(const Analysis& analysis, std::size_t) {
    return Computed(Divide(analysis.indicators.LRSlope * kYearlyPercent, analysis.series.ClosePrice[1]));
}

SlotValue DividendYield(const Analysis& analysis, std::size_t bar) {
    return Computed(Divide(analysis.series.DividendPerShare[bar] * 100, analysis.series.ClosePrice[bar]));
}

SlotValue EarningsChange(const Analysis& analysis, std::size_t bar) {
    const double trailing = analysis.series.EPSttm[bar];
    if (trailing == 0) return kSkipped;
    return Computed(Divide((analysis.series.EPSest[bar] - trailing) * 100, trailing));
}

SlotValue FiveYearEarningsChange(const Analysis& analysis, std::size_t bar) {
    const WorkingSeries& series = analysis.series;
    if (series.EPSest[bar] == 0 || series.PEGRatio[bar] == 0) return kSkipped;
    const std::optional<double> forward = Divide(series.ClosePrice[bar], series.EPSest[bar]);
    const std::optional<double> growth = Divide(series.PERatio[bar], series.PEGRatio[bar]);
    if (!forward || !growth) return kFailed;
    return Computed(100 * (*forward - *growth));
}

// Here value and guard are one computation: a close of 0 fails it even below the guard.
template <IndicatorArray kDerivative, std::size_t kLength>
SlotValue DerivativeSlope(const Analysis& analysis, std::size_t bar) {
    const std::optional<double> slope =
        Divide(kYearlyPercent * (analysis.indicators.*kDerivative)[bar], analysis.series.ClosePrice[bar]);
    if (slope && bar <= kLength) return kBelowGuard;
    return Computed(slope);
}

struct ValueSlot {
    std::string_view label;
    Relation relation;
    SlotValue (*value)(const Analysis& analysis, std::size_t bar);
};

using I = Indicators;
using W = WorkingSeries;
constexpr Relation kAtLeast = Relation::AtLeast;
constexpr Relation kAtMost = Relation::AtMost;

// The labels of slots 2 to 11 say "LR" where the values are moving regression slopes.
constexpr std::array<ValueSlot, kSlotCount> kValueSlots = {{
    {"Volume/Average Volume > X", kAtLeast, ShareOfAverageVolume},
    {"LR 15 Slope (%/yr) > X", kAtLeast, RegressionSlope<&I::MLRSlope15, 15>},
    {"LR 30 Slope (%/yr) > X", kAtLeast, RegressionSlope<&I::MLRSlope30, 30>},
    {"LR 60 Slope (%/yr) > X", kAtLeast, RegressionSlope<&I::MLRSlope60, 60>},
    {"LR 90 Slope (%/yr) > X", kAtLeast, RegressionSlope<&I::MLRSlope90, 90>},
    {"LR 120 Slope (%/yr) > X", kAtLeast, RegressionSlope<&I::MLRSlope120, 120>},
    {"LR 15 Slope (%/yr) < X", kAtMost, RegressionSlope<&I::MLRSlope15, 15>},
    {"LR 30 Slope (%/yr) < X", kAtMost, RegressionSlope<&I::MLRSlope30, 30>},
    {"LR 60 Slope (%/yr) < X", kAtMost, RegressionSlope<&I::MLRSlope60, 60>},
    {"LR 90 Slope (%/yr) < X", kAtMost, RegressionSlope<&I::MLRSlope90, 90>},
    {"LR 120 Slope (%/yr) < X", kAtMost, RegressionSlope<&I::MLRSlope120, 120>},
    {"LR Slope (%/yr) > X", kAtLeast, WindowSlope},
    {"LR Slope (%/yr) < X", kAtMost, WindowSlope},
    {"% Change > X", kAtLeast, PriceChange},
    {"% Change < X", kAtMost, PriceChange},
    {"% Div. Yield > X", kAtLeast, DividendYield},
    {"P/E > X", kAtLeast, Stored<&W::PERatio>},
    {"P/E < X", kAtMost, Stored<&W::PERatio>},
    {"P/S > X", kAtLeast, Stored<&W::PriceToSales>},
    {"P/S < X", kAtMost, Stored<&W::PriceToSales>},
    {"EPS ttm > X", kAtLeast, Stored<&W::EPSttm>},
    {"EPS ttm < X", kAtMost, Stored<&W::EPSttm>},
    {"EPS est > X", kAtLeast, Stored<&W::EPSest>},
    {"EPS est < X", kAtMost, Stored<&W::EPSest>},
    {"PEG > X", kAtLeast, Stored<&W::PEGRatio>},
    {"PEG < X", kAtMost, Stored<&W::PEGRatio>},
    {"SPS > X", kAtLeast, Indicator<&I::SalesPerShare>},
    {"SPS < X", kAtMost, Indicator<&I::SalesPerShare>},
    {"E/S > X", kAtLeast, Indicator<&I::EarningsPerSales>},
    {"E/S < X", kAtMost, Indicator<&I::EarningsPerSales>},
    {"Earnings Change est (%/yr) > X", kAtLeast, EarningsChange},
    {"Earnings Change est (%/yr) < X", kAtMost, EarningsChange},
    {"Earnings Change est (%/5 yr) > X", kAtLeast, FiveYearEarningsChange},
    {"Earnings Change est (%/5 yr) < X", kAtMost, FiveYearEarningsChange},
    {"MLR 30 Slope (%/yr) > X", kAtLeast, DerivativeSlope<&I::MLRDer30, 30>},
    {"MLR 60 Slope (%/yr) > X", kAtLeast, DerivativeSlope<&I::MLRDer60, 60>},
    {"MLR 30 Slope (%/yr) < X", kAtMost, DerivativeSlope<&I::MLRDer30, 30>},
    {"MLR 60 Slope (%/yr) < X", kAtMost, DerivativeSlope<&I::MLRDer60, 60>},
}};

bool IsSlot(std::size_t slot) {
    return slot >= 1 && slot <= kSlotCount;
}

}  // namespace

std::string_view ValueSlotLabel(std::size_t slot) {
    return IsSlot(slot) ? kValueSlots[slot - 1].label : std::string_view();
}

TestState RunValueSlot(std::size_t slot, double x, const Analysis& analysis, std::size_t bar) {
    if (!IsSlot(slot)) return TestState::Undecided;
    const ValueSlot& row = kValueSlots[slot - 1];
    const SlotValue value = bar > kMostRows ? kFailed : row.value(analysis, bar);
    switch (value.outcome) {
        case SlotValue::Outcome::Skipped:
            return TestState::Undecided;
        case SlotValue::Outcome::BelowGuard:
            return TestState::False;
        case SlotValue::Outcome::Failed:
            return Judge(std::nullopt);
        case SlotValue::Outcome::Computed:
            break;
    }
    return Judge(Holds(value.value, row.relation, x));
}

}  // namespace brantlow
