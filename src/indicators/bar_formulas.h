// The formulas of single values of the indicator pass: for the pass over all bars, and for whoever computes
// no more bars than a test looks at. Both get the same bits.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "indicators/indicator_pass.h"
#include "indicators/window_sums.h"

namespace brantlow {

inline constexpr double kNotComputed = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kMomentumScale = 24000;
// Bars between the ends of the line through a moving regression whose slope is its derivative.
inline constexpr std::size_t kDerivativeSpan = 3;
// An upper limit where nothing lies above its line.
inline constexpr double kLimitWithoutBarsAbove = 1;

inline void KeepFinite(double value, double& target) {
    if (std::isfinite(value)) target = value;
}

// Where a close stands between low and high; a bar without range stands nowhere and adds nothing.
inline double PositionInRange(double close, double low, double high) {
    if (!(high > low)) return 0;
    const double position = (close - low) / (high - low);
    return std::isfinite(position) ? position : 0;
}

struct Line {
    double slope = 0;
    double intercept = 0;
    double At(std::size_t i) const { return slope * static_cast<double>(i) + intercept; }
};

// Least squares over bars 1 to `barCount`; `squareSum` is that of their numbers' squares. What cannot be
// computed stays 0.
Line FitWholeWindow(std::size_t barCount, const double* values, double squareSum);

// What the residuals of the whole window come to, against the level of its line at each bar. They are added
// to scalars that start at 0.
void TakePriceResiduals(const BarView& bars, const double* level, IndicatorScalars& scalars);
void TakeVolumeResiduals(const BarView& bars, const double* level, IndicatorScalars& scalars);

// From 0, all bars down, to 100, all up; not finite where no bar moved.
inline double RelativeStrength(double up, double down) {
    return ((up - down) / (up + down) / 2 + 0.5) * 100;
}

// The slope of the line through four neighbouring levels, the newest of which is that of bar k. `squareSum`
// is that of the four bars' numbers.
inline double DerivativeAt(const double* newestLevel, std::size_t k, double squareSum) {
    constexpr double kPoints = kDerivativeSpan + 1;
    double sum = 0;
    double productSum = 0;
    const double* const oldest = newestLevel - kDerivativeSpan;
    for (std::size_t i = 0; i <= kDerivativeSpan; ++i) {
        sum += oldest[i];
        productSum += static_cast<double>(k - kDerivativeSpan + i) * oldest[i];
    }
    const double meanX = static_cast<double>(4 * k - 6) / kPoints;
    const double meanXX = squareSum / kPoints;
    return (productSum / kPoints - meanX * (sum / kPoints)) / (meanXX - meanX * meanX);
}

// The difference of two momenta in percent of the largest combined size so far, bar by bar.
class MomentumDifference {
  public:
    double Next(double faster, double slower) {
        const double size = std::fabs(faster) + std::fabs(slower);
        if (size == 0 || !std::isfinite(size)) return kNotComputed;
        scale_ = std::max(scale_, size);
        return 100 * (faster - slower) / scale_;
    }

  private:
    double scale_ = 0;
};

// The per-bar ratios in the order of kRatioSlots, not finite where they cannot be computed. The share count
// takes the previous close as the price.
inline constexpr auto kRatioSlots = SlotsOf<7>(
    {&Indicators::Sales, &Indicators::Earnings, &Indicators::EstimatedEarnings, &Indicators::PercentChange,
     &Indicators::SalesPerShare, &Indicators::EarningsPerSales, &Indicators::ForwardPE});
using Ratios = std::array<double, kRatioSlots.size()>;

// Divides without asking first: a divisor of 0 gives what is not finite.
inline Ratios RatiosAt(const BarView& bars, std::size_t i) {
    constexpr double kMillion = 1000000;
    const double close = bars.ClosePrice[i];
    const double before = bars.ClosePrice[i - 1];
    const double pe = bars.PERatio[i];
    const double sales = bars.PriceToSales[i];
    const double capital = bars.MarketCap[i] * kMillion;
    const double shares = capital / before;
    const double salesPerShare = before / sales;
    const double salesOfAll = salesPerShare * shares;
    const double estimated = bars.EPSest[i] * shares;
    const double change = (close - before) / before * 100;
    const bool priced = before > 0;
    return {priced ? salesOfAll : kNotComputed,    capital / pe,
            priced ? estimated : kNotComputed,     priced ? change : kNotComputed,
            priced ? salesPerShare : kNotComputed, sales / pe,
            pe * bars.EPSttm[i] / bars.EPSest[i]};
}

}  // namespace brantlow
