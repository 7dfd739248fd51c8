#include "indicators/bar_formulas.h"

#include <algorithm>

namespace brantlow {

namespace {

// The residuals of one side of a line.
struct Side {
    double sum = 0;
    double count = 0;
    void Add(double residual) {
        sum += residual;
        count += 1;
    }
    // With no residual both limits are `without`.
    void Limits(double without, double& tight, double& loose) const {
        if (count > 0) {
            KeepFinite(kTightFactor * sum / count, tight);
            KeepFinite(kLooseFactor * sum / count, loose);
        } else {
            tight = loose = without;
        }
    }
};

}  // namespace

Line FitWholeWindow(std::size_t barCount, const double* values, double squareSum) {
    const auto count = static_cast<double>(barCount);
    double sum = 0;
    double productSum = 0;
    for (std::size_t i = 1; i <= barCount; ++i) {
        sum += values[i];
        productSum += static_cast<double>(i) * values[i];
    }
    const double meanX = count * (count + 1) / 2 / count;
    const double meanXX = squareSum / count;
    const double meanY = sum / count;
    const double meanXY = productSum / count;
    const double spread = meanXX - meanX * meanX;
    Line line;
    KeepFinite((meanXY - meanX * meanY) / spread, line.slope);
    KeepFinite((meanXX * meanY - meanXY * meanX) / spread, line.intercept);
    return line;
}

void TakePriceResiduals(const BarView& bars, const double* level, IndicatorScalars& scalars) {
    Side above;
    Side below;
    for (std::size_t i = 1; i <= bars.BarCount; ++i) {
        const double residual = bars.ClosePrice[i] - level[i];
        if (residual >= 0) above.Add(residual);
        if (residual <= 0) below.Add(residual);
        if (residual > scalars.LRMaxResidual) KeepFinite(residual, scalars.LRMaxResidual);
        if (residual < scalars.LRMinResidual) KeepFinite(residual, scalars.LRMinResidual);
    }
    above.Limits(kLimitWithoutBarsAbove, scalars.LRTightUCL, scalars.LRLooseUCL);
    below.Limits(0, scalars.LRTightLCL, scalars.LRLooseLCL);
}

void TakeVolumeResiduals(const BarView& bars, const double* level, IndicatorScalars& scalars) {
    Side above;
    double total = 0;
    for (std::size_t i = 1; i <= bars.BarCount; ++i) {
        total += bars.Volume[i];
        scalars.MaxVolume = std::max(scalars.MaxVolume, bars.Volume[i]);
        const double residual = bars.Volume[i] - level[i];
        if (residual > 0) above.Add(residual);
    }
    KeepFinite(total / static_cast<double>(bars.BarCount), scalars.AverageVolume);
    above.Limits(kLimitWithoutBarsAbove, scalars.VolumeTightUCL, scalars.VolumeLooseUCL);
}

}  // namespace brantlow
