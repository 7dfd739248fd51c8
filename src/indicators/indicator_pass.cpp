#include "indicators/indicator_pass.h"

#include <algorithm>
#include <cmath>

#include "indicators/bar_formulas.h"
#include "indicators/window_sums.h"

namespace brantlow {

namespace {

constexpr auto kMASlots = SlotsOf(kMA);
constexpr auto kWMASlots = SlotsOf(kWMA);
constexpr auto kMLRSlots = SlotsOf(kMLR);
constexpr auto kSlopeSlots = SlotsOf(kMLRSlope);
constexpr auto kInterceptSlots = SlotsOf(kMLRIntercept);
constexpr auto kLooseUCLSlots = SlotsOf(kLooseUCL);
constexpr auto kLooseLCLSlots = SlotsOf(kLooseLCL);
constexpr auto kTightUCLSlots = SlotsOf(kTightUCL);
constexpr auto kTightLCLSlots = SlotsOf(kTightLCL);
constexpr auto kVolumeWMASlots =
    SlotsOf<kVolumeLengths>({&Indicators::VolumeWMA15, &Indicators::VolumeWMA30});
constexpr auto kStochasticSlots =
    SlotsOf<kStochasticLengths>({&Indicators::Stochastic15, &Indicators::Stochastic30,
                                 &Indicators::Stochastic60, &Indicators::Stochastic90});
// Shortest lengths first, as kRegressionLengths.
constexpr auto kDerSlots =
    SlotsOf<4>({&Indicators::MLRDer15, &Indicators::MLRDer30, &Indicators::MLRDer60, &Indicators::MLRDer90});
constexpr auto kMomentumSlots =
    SlotsOf<3>({&Indicators::Momentum15, &Indicators::Momentum30, &Indicators::Momentum60});
constexpr auto kRSISlots = SlotsOf<2>({&Indicators::RSI15, &Indicators::RSI30});
constexpr auto kMcClellanSlots = SlotsOf<2>({&Indicators::McClellan15, &Indicators::McClellan30});
constexpr auto kMACDSlots = SlotsOf<2>({&Indicators::MACD15, &Indicators::MACD30});

void PrepareInputs(const BarView& bars, IndicatorBlock& block) {
    double* const closes = block.Work(WorkArray::Closes);
    double* const products = block.Work(WorkArray::Products);
    double* const squares = block.Work(WorkArray::Squares);
    double* const positions = block.Work(WorkArray::Positions);
    double* const ups = block.Work(WorkArray::UpBars);
    double* const downs = block.Work(WorkArray::DownBars);
    std::copy_n(bars.ClosePrice, bars.BarCount + 1, closes);
    std::copy_n(bars.Volume, bars.BarCount + 1, block.Work(WorkArray::Volumes));
    squares[0] = ups[0] = ups[1] = downs[0] = downs[1] = 0;
    for (std::size_t i = 1; i <= bars.BarCount; ++i) {
        const auto x = static_cast<double>(i);
        products[i] = x * closes[i];
        squares[i] = squares[i - 1] + x * x;
        positions[i] = PositionInRange(closes[i], bars.LowPrice[i], bars.HighPrice[i]);
    }
    for (std::size_t i = 2; i <= bars.BarCount; ++i) {
        ups[i] = ups[i - 1] + (closes[i] > closes[i - 1] ? 1 : 0);
        downs[i] = downs[i - 1] + (closes[i] < closes[i - 1] ? 1 : 0);
    }
}

void DrawLine(const Line& line, IndicatorSlot slot, IndicatorBlock& block) {
    for (std::size_t i = 1; i <= block.BarCount(); ++i) block[slot][i] = line.At(i);
    block.Finish(slot, 1);
}

void WholeWindowPrice(const BarView& bars, const Indicators* old, IndicatorBlock& block) {
    IndicatorScalars& scalars = block.scalars;
    const double squareSum = block.Work(WorkArray::Squares)[bars.BarCount];
    const Line line = FitWholeWindow(bars.BarCount, bars.ClosePrice, squareSum);
    scalars.LRSlope = line.slope;
    scalars.LRIntercept = line.intercept;
    constexpr IndicatorSlot kSlot = SlotOf(&Indicators::LRPrice);
    DrawLine(line, kSlot, block);
    TakePriceResiduals(bars, block.Settled(kSlot, old), scalars);
}

void WholeWindowVolume(const BarView& bars, const Indicators* old, IndicatorBlock& block) {
    constexpr IndicatorSlot kSlot = SlotOf(&Indicators::LRVolume);
    const double squareSum = block.Work(WorkArray::Squares)[bars.BarCount];
    DrawLine(FitWholeWindow(bars.BarCount, bars.Volume, squareSum), kSlot, block);
    TakeVolumeResiduals(bars, block.Settled(kSlot, old), block.scalars);
}

void ComputeRatios(const BarView& bars, IndicatorBlock& block) {
    std::array<double*, kRatioSlots.size()> out;
    for (std::size_t r = 0; r < out.size(); ++r) out[r] = block[kRatioSlots[r]];
    for (std::size_t i = 2; i <= bars.BarCount; ++i) {
        const Ratios ratios = RatiosAt(bars, i);
        for (std::size_t r = 0; r < out.size(); ++r) out[r][i] = ratios[r];
    }
    for (const IndicatorSlot slot : kRatioSlots) block.Finish(slot, 2);
}

template <std::size_t Count>
std::array<double*, Count> ArraysOf(const std::array<IndicatorSlot, Count>& slots, IndicatorBlock& block) {
    std::array<double*, Count> arrays;
    for (std::size_t i = 0; i < Count; ++i) arrays[i] = block[slots[i]];
    return arrays;
}

template <std::size_t Count>
void FinishAll(const std::array<IndicatorSlot, Count>& slots, IndicatorBlock& block) {
    for (std::size_t l = 0; l < Count; ++l) block.Finish(slots[l], kAverageLengths[l]);
}

// The means of bar times close go where the slopes made of them will stand.
void ComputeAverages(IndicatorBlock& block) {
    const std::size_t n = block.BarCount();
    AverageCloses(n, block.Work(WorkArray::Closes), block.Work(WorkArray::Products),
                  {ArraysOf(kMASlots, block), ArraysOf(kWMASlots, block), ArraysOf(kSlopeSlots, block)});
    AverageVolumes(n, block.Work(WorkArray::Volumes), ArraysOf(kVolumeWMASlots, block));
    AveragePositions(n, block.Work(WorkArray::Positions), ArraysOf(kStochasticSlots, block));
    FinishAll(kMASlots, block);
    FinishAll(kWMASlots, block);
    FinishAll(kVolumeWMASlots, block);
    FinishAll(kStochasticSlots, block);
}

// The difference of two weighted averages, stored from the shorter length on: bars below the longer length
// have no longer average and it counts 0 there.
void ComputeMcClellan(const Indicators* old, IndicatorBlock& block) {
    for (std::size_t l = 0; l < kMcClellanSlots.size(); ++l) {
        const double* const shorter = block.Settled(kWMASlots[l], old);
        const double* const longer = block.Settled(kWMASlots[l + 1], old);
        double* const out = block[kMcClellanSlots[l]];
        for (std::size_t k = kAverageLengths[l]; k <= block.BarCount(); ++k) {
            out[k] = shorter[k] - (k < kAverageLengths[l + 1] ? 0.0 : longer[k]);
        }
        block.Finish(kMcClellanSlots[l], kAverageLengths[l]);
    }
}

void ComputeMomentum(std::size_t l, const double* slope, IndicatorBlock& block) {
    const std::size_t length = kRegressionLengths[l];
    const double* const closes = block.Work(WorkArray::Closes);
    double* const out = block[kMomentumSlots[l]];
    for (std::size_t k = length; k <= block.BarCount(); ++k) {
        out[k] = slope[k] * kMomentumScale / closes[k - length + 1];
    }
    block.Finish(kMomentumSlots[l], length);
}

void ComputeRSI(std::size_t l, IndicatorBlock& block) {
    const std::size_t length = kRegressionLengths[l];
    const double* const ups = block.Work(WorkArray::UpBars);
    const double* const downs = block.Work(WorkArray::DownBars);
    double* const out = block[kRSISlots[l]];
    for (std::size_t k = length + 1; k <= block.BarCount(); ++k) {
        out[k] = RelativeStrength(ups[k] - ups[k - length], downs[k] - downs[k - length]);
    }
    block.Finish(kRSISlots[l], length + 1);
}

void ComputeBands(std::size_t l, const double* slope, const double* intercept, IndicatorBlock& block) {
    const std::size_t length = kRegressionLengths[l];
    const BandWindows windows{length,
                              slope,
                              intercept,
                              block[kLooseUCLSlots[l]],
                              block[kTightUCLSlots[l]],
                              block[kLooseLCLSlots[l]],
                              block[kTightLCLSlots[l]]};
    SpreadBands(block.BarCount(), block.Work(WorkArray::Closes), windows);
    // The shortest length writes its lower limits only where it has an upper one.
    if (l == 0) {
        for (std::size_t k = length; k <= block.BarCount(); ++k) {
            if (!std::isnan(windows.tightUpper[k])) continue;
            windows.looseLower[k] = windows.tightLower[k] = kNotComputed;
        }
    }
    for (const auto& slots : {kLooseUCLSlots, kTightUCLSlots, kLooseLCLSlots, kTightLCLSlots}) {
        block.Finish(slots[l], length);
    }
}

void ComputeMACD(std::size_t l, const Indicators* old, IndicatorBlock& block) {
    const double* const faster = block.Settled(kMomentumSlots[l], old);
    const double* const slower = block.Settled(kMomentumSlots[l + 1], old);
    double* const out = block[kMACDSlots[l]];
    const std::size_t first = kRegressionLengths[l + 1];
    MomentumDifference difference;
    for (std::size_t k = first; k <= block.BarCount(); ++k) out[k] = difference.Next(faster[k], slower[k]);
    block.Finish(kMACDSlots[l], first);
}

void ComputeDerivative(std::size_t l, const double* level, IndicatorBlock& block) {
    const double* const squares = block.Work(WorkArray::Squares);
    double* const out = block[kDerSlots[l]];
    const std::size_t first = kRegressionLengths[l] + kDerivativeSpan;
    for (std::size_t k = first; k <= block.BarCount(); ++k) {
        out[k] = DerivativeAt(level + k, k, squares[k] - squares[k - kDerivativeSpan - 1]);
    }
    block.Finish(kDerSlots[l], first);
}

void ComputeRegression(std::size_t l, const Indicators* old, IndicatorBlock& block) {
    const std::size_t length = kRegressionLengths[l];
    FitLines(block.BarCount(),
             {length, block[kMASlots[l]], block[kSlopeSlots[l]], block.Work(WorkArray::Squares),
              block[kSlopeSlots[l]], block[kInterceptSlots[l]]});
    block.Finish(kSlopeSlots[l], length);
    block.Finish(kInterceptSlots[l], length);
    const double* const slope = block.Settled(kSlopeSlots[l], old);
    const double* const intercept = block.Settled(kInterceptSlots[l], old);
    double* const level = block[kMLRSlots[l]];
    for (std::size_t k = length; k <= block.BarCount(); ++k) {
        level[k] = slope[k] * static_cast<double>(k) + intercept[k];
    }
    block.Finish(kMLRSlots[l], length);
    if (l < kMomentumSlots.size()) ComputeMomentum(l, slope, block);
    if (l < kRSISlots.size()) ComputeRSI(l, block);
    ComputeBands(l, slope, intercept, block);
    if (l < kMACDSlots.size()) ComputeMACD(l, old, block);
    if (l < kDerSlots.size()) ComputeDerivative(l, block.Settled(kMLRSlots[l], old), block);
}

}  // namespace

BarView ViewOf(const WorkingSeries& series) {
    return {series.BarCount,           series.ClosePrice.Values(), series.LowPrice.Values(),
            series.HighPrice.Values(), series.Volume.Values(),     series.PERatio.Values(),
            series.EPSttm.Values(),    series.EPSest.Values(),     series.PriceToSales.Values(),
            series.MarketCap.Values()};
}

void ComputeBlock(const BarView& bars, const Indicators* old, IndicatorBlock& block) {
    block.Start(bars.BarCount);
    PrepareInputs(bars, block);
    WholeWindowPrice(bars, old, block);
    WholeWindowVolume(bars, old, block);
    ComputeRatios(bars, block);
    ComputeAverages(block);
    ComputeMcClellan(old, block);
    // Longest first: the oscillators of a length read the momentum of the next longer one.
    for (std::size_t l = kRegressionLengths.size(); l-- > 0;) ComputeRegression(l, old, block);
}

void StoreFirstBars(const BarView& bars, Indicators& indicators) {
    const auto store = [&](IndicatorSlot slot, std::size_t i, double value) {
        if (std::isfinite(value)) (indicators.*kIndicatorArrays[slot].array).Set(i, value);
    };
    const Ratios ratios = RatiosAt(bars, 1);
    for (std::size_t r = 0; r < ratios.size(); ++r) store(kRatioSlots[r], 1, ratios[r]);
    for (std::size_t l = 0; l < kRSISlots.size(); ++l) {
        const std::size_t length = kRegressionLengths[l];
        if (length > bars.BarCount) continue;
        double up = 0;
        double down = 0;
        for (std::size_t j = 1; j <= length; ++j) {
            up += bars.ClosePrice[j] > bars.ClosePrice[j - 1] ? 1 : 0;
            down += bars.ClosePrice[j] < bars.ClosePrice[j - 1] ? 1 : 0;
        }
        store(kRSISlots[l], length, RelativeStrength(up, down));
    }
}

}  // namespace brantlow
