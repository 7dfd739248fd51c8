// The inner loops of the indicator pass: sums over moving windows of many bars, several neighbouring windows
// at a time. Every window is summed on its own from its oldest bar to its newest, so a result is the same to
// the last bit as that of one loop after another.
//
// All pointers address element 0 of arrays indexed by bar. Inputs must be readable, and outputs writable, for
// kLanePadding elements behind bar `barCount`; what lies there is of no account.
#pragma once

#include <array>
#include <cstddef>

#include "indicators/indicators.h"

namespace brantlow {

// Most windows summed at a time, less one, rounded up to a whole vector.
inline constexpr std::size_t kLanePadding = 16;

// For each length L and each bar k from L: mean[k] that of the closes, weightedMean[k] their mean with the
// weights 1 to L, productMean[k] that of `products` (none for the longest length).
struct CloseWindows {
    std::array<double*, kAverageLengths.size()> mean;
    std::array<double*, kAverageLengths.size()> weightedMean;
    std::array<double*, kRegressionLengths.size()> productMean;
};
void AverageCloses(std::size_t barCount, const double* closes, const double* products,
                   const CloseWindows& out);

// Weighted means over 15 and 30 bars.
inline constexpr std::size_t kVolumeLengths = 2;
void AverageVolumes(std::size_t barCount, const double* volumes,
                    const std::array<double*, kVolumeLengths>& weightedMean);

// Plain means over 15, 30, 60 and 90 bars.
inline constexpr std::size_t kStochasticLengths = 4;
void AveragePositions(std::size_t barCount, const double* positions,
                      const std::array<double*, kStochasticLengths>& mean);

// A line for each bar k, and where the bands about it go: the mean of the closes' residuals of one side over
// the `length` bars up to k, times the factor of the band. Not finite where that side has no residual.
struct BandWindows {
    std::size_t length;
    const double* slope;
    const double* intercept;
    double* looseUpper;
    double* tightUpper;
    double* looseLower;
    double* tightLower;
};
void SpreadBands(std::size_t barCount, const double* closes, const BandWindows& windows);

// The line fitted to the `length` bars up to each bar k, from the means of its closes and of bar times close.
// `squares` holds the sums of the squares of 1 to k. `slope` may be `productMean`.
struct LineWindows {
    std::size_t length;
    const double* mean;
    const double* productMean;
    const double* squares;
    double* slope;
    double* intercept;
};
void FitLines(std::size_t barCount, const LineWindows& windows);

// One of those lines: its newest bar k, the sum of the squares of its bars' numbers (sums of whole numbers
// below 2^53 are exact whatever their order), the means of its closes and of bar times close.
inline void FitOneLine(std::size_t length, std::size_t k, double squareSum, double meanY, double meanXY,
                       double& slope, double& intercept) {
    const auto count = static_cast<double>(length);
    const double newestExcess = count * (count - 1) / 2;
    const double meanX = (count * static_cast<double>(k) - newestExcess) / count;
    const double meanXX = squareSum / count;
    const double spread = meanXX - meanX * meanX;
    slope = (meanXY - meanX * meanY) / spread;
    intercept = (meanXX * meanY - meanXY * meanX) / spread;
}

// The same sums and bands for eight neighbouring windows alone, for a reader that needs few bars. The newest
// bar of the first window is `firstNewest`; windows may begin before bar 1 where the memory is the caller's,
// and what comes of those is of no account.
inline constexpr std::size_t kWindowsAtOnce = 8;
struct EightMeans {
    std::array<double, kWindowsAtOnce> mean;
    std::array<double, kWindowsAtOnce> weightedMean;
    std::array<double, kWindowsAtOnce> productMean;
};
void AverageEight(const double* closes, std::size_t length, std::ptrdiff_t firstNewest, EightMeans& out);
// The arrays of `windows` hold eight elements, the first that of the first window.
void SpreadEight(const double* closes, std::ptrdiff_t firstNewest, const BandWindows& windows);

// How many of `count` values are finite.
std::size_t CountFinite(const double* values, std::size_t count);

// The bands' widths in mean residuals.
inline constexpr double kTightFactor = 2.658;
inline constexpr double kLooseFactor = 3.865;

}  // namespace brantlow
