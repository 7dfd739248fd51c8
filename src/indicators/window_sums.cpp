#include "indicators/window_sums.h"

#include <bit>
#include <cstdint>
#include <cstring>

#include "indicators/wide_loops.h"

namespace brantlow {

namespace {

constexpr std::size_t kLanes = 4;
using Lanes = double __attribute__((vector_size(kLanes * sizeof(double))));
using LaneMasks = std::int64_t __attribute__((vector_size(kLanes * sizeof(double))));

// Vectors in flight: enough independent sums to hide the latency of an addition.
constexpr std::size_t kFew = 2;
constexpr std::size_t kMany = 4;
static_assert(kMany * kLanes <= kLanePadding);

constexpr double WeightSum(std::size_t length) {
    const auto count = static_cast<double>(length);
    return count * (count + 1) / 2;
}

// The bands of eight neighbouring windows; the arrays of `windows` start at the first of them, `close` at its
// oldest bar, which has the number `firstBar`.
inline __attribute__((always_inline)) void SpreadFew(const double* close, double firstBar,
                                                     const BandWindows& windows) {
    Lanes slope[kFew];
    Lanes intercept[kFew];
    Lanes bar[kFew];
    Lanes above[kFew] = {};
    Lanes below[kFew] = {};
    LaneMasks aboveCount[kFew] = {};
    LaneMasks belowCount[kFew] = {};
    for (std::size_t v = 0; v < kFew; ++v) {
        std::memcpy(&slope[v], windows.slope + v * kLanes, sizeof slope[v]);
        std::memcpy(&intercept[v], windows.intercept + v * kLanes, sizeof intercept[v]);
        bar[v] = Lanes{0, 1, 2, 3} + (firstBar + static_cast<double>(v * kLanes));
    }
    for (std::size_t i = 0; i < windows.length; ++i, ++close) {
        for (std::size_t v = 0; v < kFew; ++v) {
            Lanes here;
            std::memcpy(&here, close + v * kLanes, sizeof here);
            const Lanes residual = here - (slope[v] * bar[v] + intercept[v]);
            // A comparison that holds is a lane of ones: all bits of the residual pass, and it counts -1.
            const LaneMasks isAbove = residual >= 0.0;
            const LaneMasks isBelow = residual <= 0.0;
            above[v] += reinterpret_cast<Lanes>(reinterpret_cast<LaneMasks>(residual) & isAbove);
            below[v] += reinterpret_cast<Lanes>(reinterpret_cast<LaneMasks>(residual) & isBelow);
            aboveCount[v] -= isAbove;
            belowCount[v] -= isBelow;
            bar[v] += 1.0;
        }
    }
    for (std::size_t v = 0; v < kFew; ++v) {
        const Lanes up = __builtin_convertvector(aboveCount[v], Lanes);
        const Lanes down = __builtin_convertvector(belowCount[v], Lanes);
        const Lanes looseUpper = kLooseFactor * above[v] / up;
        const Lanes tightUpper = kTightFactor * above[v] / up;
        const Lanes looseLower = kLooseFactor * below[v] / down;
        const Lanes tightLower = kTightFactor * below[v] / down;
        std::memcpy(windows.looseUpper + v * kLanes, &looseUpper, sizeof looseUpper);
        std::memcpy(windows.tightUpper + v * kLanes, &tightUpper, sizeof tightUpper);
        std::memcpy(windows.looseLower + v * kLanes, &looseLower, sizeof looseLower);
        std::memcpy(windows.tightLower + v * kLanes, &tightLower, sizeof tightLower);
    }
}

}  // namespace

BRANTLOW_WIDE_LOOPS
void AverageCloses(std::size_t barCount, const double* closes, const double* products,
                   const CloseWindows& out) {
    for (std::size_t start = 1; start + kAverageLengths.front() - 1 <= barCount; start += kFew * kLanes) {
        Lanes sum[kFew] = {};
        Lanes weighted[kFew] = {};
        Lanes product[kFew] = {};
        double weight = 0;
        std::size_t t = start;
        for (std::size_t l = 0; l < kAverageLengths.size(); ++l) {
            const std::size_t k = start + kAverageLengths[l] - 1;
            if (k > barCount) break;
            for (; t <= k; ++t) {
                weight += 1;
                for (std::size_t v = 0; v < kFew; ++v) {
                    Lanes close;
                    Lanes timesBar;
                    std::memcpy(&close, closes + t + v * kLanes, sizeof close);
                    std::memcpy(&timesBar, products + t + v * kLanes, sizeof timesBar);
                    sum[v] += close;
                    weighted[v] += close * weight;
                    product[v] += timesBar;
                }
            }
            for (std::size_t v = 0; v < kFew; ++v) {
                const Lanes mean = sum[v] / weight;
                const Lanes weightedMean = weighted[v] / WeightSum(kAverageLengths[l]);
                const Lanes productMean = product[v] / weight;
                std::memcpy(out.mean[l] + k + v * kLanes, &mean, sizeof mean);
                std::memcpy(out.weightedMean[l] + k + v * kLanes, &weightedMean, sizeof weightedMean);
                if (l >= kRegressionLengths.size()) continue;
                std::memcpy(out.productMean[l] + k + v * kLanes, &productMean, sizeof productMean);
            }
        }
    }
}

BRANTLOW_WIDE_LOOPS
void AverageVolumes(std::size_t barCount, const double* volumes,
                    const std::array<double*, kVolumeLengths>& weightedMean) {
    for (std::size_t start = 1; start + kAverageLengths.front() - 1 <= barCount; start += kMany * kLanes) {
        Lanes weighted[kMany] = {};
        double weight = 0;
        std::size_t t = start;
        for (std::size_t l = 0; l < weightedMean.size(); ++l) {
            const std::size_t k = start + kAverageLengths[l] - 1;
            if (k > barCount) break;
            for (; t <= k; ++t) {
                weight += 1;
                for (std::size_t v = 0; v < kMany; ++v) {
                    Lanes volume;
                    std::memcpy(&volume, volumes + t + v * kLanes, sizeof volume);
                    weighted[v] += volume * weight;
                }
            }
            for (std::size_t v = 0; v < kMany; ++v) {
                const Lanes mean = weighted[v] / WeightSum(kAverageLengths[l]);
                std::memcpy(weightedMean[l] + k + v * kLanes, &mean, sizeof mean);
            }
        }
    }
}

BRANTLOW_WIDE_LOOPS
void AveragePositions(std::size_t barCount, const double* positions,
                      const std::array<double*, kStochasticLengths>& mean) {
    for (std::size_t start = 1; start + kAverageLengths.front() - 1 <= barCount; start += kMany * kLanes) {
        Lanes sum[kMany] = {};
        std::size_t t = start;
        for (std::size_t l = 0; l < mean.size(); ++l) {
            const std::size_t k = start + kAverageLengths[l] - 1;
            if (k > barCount) break;
            for (; t <= k; ++t) {
                for (std::size_t v = 0; v < kMany; ++v) {
                    Lanes position;
                    std::memcpy(&position, positions + t + v * kLanes, sizeof position);
                    sum[v] += position;
                }
            }
            for (std::size_t v = 0; v < kMany; ++v) {
                const Lanes value = sum[v] / static_cast<double>(kAverageLengths[l]);
                std::memcpy(mean[l] + k + v * kLanes, &value, sizeof value);
            }
        }
    }
}

BRANTLOW_WIDE_LOOPS
void AverageEight(const double* closes, std::size_t length, std::ptrdiff_t firstNewest, EightMeans& out) {
    constexpr Lanes kSteps{0, 1, 2, 3};
    const std::ptrdiff_t oldest = firstNewest - static_cast<std::ptrdiff_t>(length) + 1;
    const double* at = closes + oldest;
    Lanes sum[kFew] = {};
    Lanes weighted[kFew] = {};
    Lanes product[kFew] = {};
    Lanes bar[kFew];
    for (std::size_t v = 0; v < kFew; ++v)
        bar[v] = kSteps + (static_cast<double>(oldest) + static_cast<double>(v * kLanes));
    double weight = 0;
    for (std::size_t i = 0; i < length; ++i, ++at) {
        weight += 1;
        for (std::size_t v = 0; v < kFew; ++v) {
            Lanes close;
            std::memcpy(&close, at + v * kLanes, sizeof close);
            sum[v] += close;
            weighted[v] += close * weight;
            product[v] += bar[v] * close;
            bar[v] += 1.0;
        }
    }
    for (std::size_t v = 0; v < kFew; ++v) {
        const Lanes mean = sum[v] / weight;
        const Lanes weightedMean = weighted[v] / WeightSum(length);
        const Lanes productMean = product[v] / weight;
        std::memcpy(&out.mean[v * kLanes], &mean, sizeof mean);
        std::memcpy(&out.weightedMean[v * kLanes], &weightedMean, sizeof weightedMean);
        std::memcpy(&out.productMean[v * kLanes], &productMean, sizeof productMean);
    }
}

BRANTLOW_WIDE_LOOPS
void FitLines(std::size_t barCount, const LineWindows& windows) {
    for (std::size_t k = windows.length; k <= barCount; ++k) {
        const double squareSum = windows.squares[k] - windows.squares[k - windows.length];
        FitOneLine(windows.length, k, squareSum, windows.mean[k], windows.productMean[k], windows.slope[k],
                   windows.intercept[k]);
    }
}

BRANTLOW_WIDE_LOOPS
void SpreadBands(std::size_t barCount, const double* closes, const BandWindows& windows) {
    for (std::size_t k = windows.length; k <= barCount; k += kFew * kLanes) {
        const std::size_t oldest = k - windows.length + 1;
        SpreadFew(closes + oldest, static_cast<double>(oldest),
                  {windows.length, windows.slope + k, windows.intercept + k, windows.looseUpper + k,
                   windows.tightUpper + k, windows.looseLower + k, windows.tightLower + k});
    }
}

BRANTLOW_WIDE_LOOPS
void SpreadEight(const double* closes, std::ptrdiff_t firstNewest, const BandWindows& windows) {
    const std::ptrdiff_t oldest = firstNewest - static_cast<std::ptrdiff_t>(windows.length) + 1;
    SpreadFew(closes + oldest, static_cast<double>(oldest), windows);
}

BRANTLOW_WIDE_LOOPS
std::size_t CountFinite(const double* values, std::size_t count) {
    constexpr std::uint64_t kExponent = 0x7FF0000000000000U;
    std::uint64_t finite = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isFinite = (std::bit_cast<std::uint64_t>(values[i]) & kExponent) != kExponent;
        finite += static_cast<std::uint64_t>(isFinite);
    }
    return finite;
}

}  // namespace brantlow
