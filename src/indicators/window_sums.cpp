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

inline __attribute__((always_inline)) void Load(const double* from, Lanes& lanes) {
    std::memcpy(&lanes, from, sizeof lanes);
}

inline __attribute__((always_inline)) void Store(const Lanes& lanes, double* to) {
    std::memcpy(to, &lanes, sizeof lanes);
}

// What lies on one side of the line of each of a vector's windows: the sum of the residuals and their count.
struct SideOfLine {
    Lanes sum = {};
    LaneMasks count = {};

    // A comparison that holds is a lane of ones: all bits of the residual pass, and it counts -1.
    inline __attribute__((always_inline)) void Add(const Lanes& residual, const LaneMasks& isHere) {
        sum += reinterpret_cast<Lanes>(reinterpret_cast<LaneMasks>(residual) & isHere);
        count -= isHere;
    }

    // The mean of the residuals, multiplied: first by the factor, then divided, which the last bit depends
    // on.
    inline __attribute__((always_inline)) void StoreBand(double factor, double* to) const {
        Store(factor * sum / __builtin_convertvector(count, Lanes), to);
    }
};

// The line of each of a vector's windows, and the bar of each that is looked at.
struct LanesOfLines {
    Lanes slope;
    Lanes intercept;
    Lanes bar;
};

// The bands of eight neighbouring windows; the arrays of `windows` start at the first of them, `close` at its
// oldest bar, which has the number `firstBar`.
inline __attribute__((always_inline)) void SpreadFew(const double* close, double firstBar,
                                                     const BandWindows& windows) {
    LanesOfLines line[kFew];
    SideOfLine above[kFew];
    SideOfLine below[kFew];
    for (std::size_t v = 0; v < kFew; ++v) {
        Load(windows.slope + v * kLanes, line[v].slope);
        Load(windows.intercept + v * kLanes, line[v].intercept);
        line[v].bar = Lanes{0, 1, 2, 3} + (firstBar + static_cast<double>(v * kLanes));
    }
    for (std::size_t i = 0; i < windows.length; ++i, ++close) {
        for (std::size_t v = 0; v < kFew; ++v) {
            Lanes here;
            Load(close + v * kLanes, here);
            const Lanes residual = here - (line[v].slope * line[v].bar + line[v].intercept);
            above[v].Add(residual, residual >= 0.0);
            below[v].Add(residual, residual <= 0.0);
            line[v].bar += 1.0;
        }
    }
    for (std::size_t v = 0; v < kFew; ++v) {
        above[v].StoreBand(kLooseFactor, windows.looseUpper + v * kLanes);
        above[v].StoreBand(kTightFactor, windows.tightUpper + v * kLanes);
        below[v].StoreBand(kLooseFactor, windows.looseLower + v * kLanes);
        below[v].StoreBand(kTightFactor, windows.tightLower + v * kLanes);
    }
}

// What is summed up for a vector's windows while they grow from the shortest length to the longest, a bar
// with each Add; `weight` counts the bars so far. Store gives the means of length number `l` for the windows
// whose newest bars begin at `newest`.
struct CloseSums {
    struct Source {
        const double* closes;
        const double* products;
    };
    Lanes sum = {};
    Lanes weighted = {};
    Lanes product = {};

    inline __attribute__((always_inline)) void Add(const Source& from, std::size_t bar, double weight) {
        Lanes close;
        Lanes timesBar;
        Load(from.closes + bar, close);
        Load(from.products + bar, timesBar);
        sum += close;
        weighted += close * weight;
        product += timesBar;
    }
    inline __attribute__((always_inline)) void StoreMeans(std::size_t l, double weight, std::size_t newest,
                                                          const CloseWindows& to) const {
        Store(sum / weight, to.mean[l] + newest);
        Store(weighted / WeightSum(kAverageLengths[l]), to.weightedMean[l] + newest);
        if (l < kRegressionLengths.size()) Store(product / weight, to.productMean[l] + newest);
    }
};

struct VolumeSums {
    using Source = const double*;
    Lanes weighted = {};

    inline __attribute__((always_inline)) void Add(Source volumes, std::size_t bar, double weight) {
        Lanes volume;
        Load(volumes + bar, volume);
        weighted += volume * weight;
    }
    inline __attribute__((always_inline)) void StoreMeans(
        std::size_t l, double, std::size_t newest, const std::array<double*, kVolumeLengths>& to) const {
        Store(weighted / WeightSum(kAverageLengths[l]), to[l] + newest);
    }
};

struct PositionSums {
    using Source = const double*;
    Lanes sum = {};

    inline __attribute__((always_inline)) void Add(Source positions, std::size_t bar, double) {
        Lanes position;
        Load(positions + bar, position);
        sum += position;
    }
    inline __attribute__((always_inline)) void StoreMeans(
        std::size_t l, double weight, std::size_t newest,
        const std::array<double*, kStochasticLengths>& to) const {
        Store(sum / weight, to[l] + newest);
    }
};

// Walks over all windows, `kVectors` vectors of them side by side; each grows through the first `lengths` of
// kAverageLengths as far as the bars go.
template <class Sums, std::size_t kVectors, class Means>
inline __attribute__((always_inline)) void GrowWindows(std::size_t barCount, std::size_t lengths,
                                                       const typename Sums::Source& from, const Means& to) {
    for (std::size_t start = 1; start + kAverageLengths.front() - 1 <= barCount; start += kVectors * kLanes) {
        Sums sums[kVectors];
        double weight = 0;
        std::size_t bar = start;
        for (std::size_t l = 0; l < lengths; ++l) {
            const std::size_t newest = start + kAverageLengths[l] - 1;
            if (newest > barCount) break;
            for (; bar <= newest; ++bar) {
                weight += 1;
                for (std::size_t v = 0; v < kVectors; ++v) sums[v].Add(from, bar + v * kLanes, weight);
            }
            for (std::size_t v = 0; v < kVectors; ++v) sums[v].StoreMeans(l, weight, newest + v * kLanes, to);
        }
    }
}

}  // namespace

BRANTLOW_WIDE_LOOPS
void AverageCloses(std::size_t barCount, const double* closes, const double* products,
                   const CloseWindows& out) {
    GrowWindows<CloseSums, kFew>(barCount, kAverageLengths.size(), {closes, products}, out);
}

BRANTLOW_WIDE_LOOPS
void AverageVolumes(std::size_t barCount, const double* volumes,
                    const std::array<double*, kVolumeLengths>& weightedMean) {
    GrowWindows<VolumeSums, kMany>(barCount, weightedMean.size(), volumes, weightedMean);
}

BRANTLOW_WIDE_LOOPS
void AveragePositions(std::size_t barCount, const double* positions,
                      const std::array<double*, kStochasticLengths>& mean) {
    GrowWindows<PositionSums, kMany>(barCount, mean.size(), positions, mean);
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
            Load(at + v * kLanes, close);
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
        Store(mean, &out.mean[v * kLanes]);
        Store(weightedMean, &out.weightedMean[v * kLanes]);
        Store(productMean, &out.productMean[v * kLanes]);
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
