#include "indicators/indicator_pass.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "indicators/window_sums.h"

namespace brantlow {

namespace {

constexpr double kNotComputed = std::numeric_limits<double>::quiet_NaN();
constexpr double kMomentumScale = 24000;
constexpr double kMillion = 1000000;
// Bars between the ends of the line through a moving regression whose slope is its derivative.
constexpr std::size_t kDerivativeSpan = 3;
// An upper limit where nothing lies above its line.
constexpr double kLimitWithoutBarsAbove = 1;

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

void KeepFinite(double value, double& target) {
    if (std::isfinite(value)) target = value;
}

// Where a close stands between low and high; a bar without range stands nowhere and adds nothing.
double PositionInRange(double close, double low, double high) {
    if (!(high > low)) return 0;
    const double position = (close - low) / (high - low);
    return std::isfinite(position) ? position : 0;
}

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

struct Line {
    double slope = 0;
    double intercept = 0;
    double At(std::size_t i) const { return slope * static_cast<double>(i) + intercept; }
};

// Least squares over bars 1 to `barCount`. What cannot be computed stays 0.
Line FitWholeWindow(std::size_t barCount, const double* values, const double* squares) {
    const auto count = static_cast<double>(barCount);
    double sum = 0;
    double productSum = 0;
    for (std::size_t i = 1; i <= barCount; ++i) {
        sum += values[i];
        productSum += static_cast<double>(i) * values[i];
    }
    const double meanX = count * (count + 1) / 2 / count;
    const double meanXX = squares[barCount] / count;
    const double meanY = sum / count;
    const double meanXY = productSum / count;
    const double spread = meanXX - meanX * meanX;
    Line line;
    KeepFinite((meanXY - meanX * meanY) / spread, line.slope);
    KeepFinite((meanXX * meanY - meanXY * meanX) / spread, line.intercept);
    return line;
}

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

void DrawLine(const Line& line, IndicatorSlot slot, IndicatorBlock& block) {
    for (std::size_t i = 1; i <= block.BarCount(); ++i) block[slot][i] = line.At(i);
    block.Finish(slot, 1);
}

void WholeWindowPrice(const BarView& bars, const Indicators* old, IndicatorBlock& block) {
    IndicatorScalars& scalars = block.scalars;
    const Line line = FitWholeWindow(bars.BarCount, bars.ClosePrice, block.Work(WorkArray::Squares));
    scalars.LRSlope = line.slope;
    scalars.LRIntercept = line.intercept;
    constexpr IndicatorSlot kSlot = SlotOf(&Indicators::LRPrice);
    DrawLine(line, kSlot, block);
    const double* const level = block.Settled(kSlot, old);
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

void WholeWindowVolume(const BarView& bars, const Indicators* old, IndicatorBlock& block) {
    IndicatorScalars& scalars = block.scalars;
    constexpr IndicatorSlot kSlot = SlotOf(&Indicators::LRVolume);
    DrawLine(FitWholeWindow(bars.BarCount, bars.Volume, block.Work(WorkArray::Squares)), kSlot, block);
    const double* const level = block.Settled(kSlot, old);
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

// The per-bar ratios in the order of kRatioSlots. The share count takes the previous close as the price.
constexpr auto kRatioSlots = SlotsOf<7>(
    {&Indicators::Sales, &Indicators::Earnings, &Indicators::EstimatedEarnings, &Indicators::PercentChange,
     &Indicators::SalesPerShare, &Indicators::EarningsPerSales, &Indicators::ForwardPE});
using Ratios = std::array<double, kRatioSlots.size()>;

// Divides without asking first: a divisor of 0 gives what is not finite, and so is not stored.
inline Ratios RatiosAt(const BarView& bars, std::size_t i) {
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

// From 0, all bars down, to 100, all up; not finite where no bar moved.
double RelativeStrength(double up, double down) {
    return ((up - down) / (up + down) / 2 + 0.5) * 100;
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

// The difference of two momenta in percent of the largest combined size so far.
void ComputeMACD(std::size_t l, const Indicators* old, IndicatorBlock& block) {
    const double* const faster = block.Settled(kMomentumSlots[l], old);
    const double* const slower = block.Settled(kMomentumSlots[l + 1], old);
    double* const out = block[kMACDSlots[l]];
    const std::size_t first = kRegressionLengths[l + 1];
    double scale = 0;
    for (std::size_t k = first; k <= block.BarCount(); ++k) {
        const double size = std::fabs(faster[k]) + std::fabs(slower[k]);
        const bool moves = size != 0 && std::isfinite(size);
        if (moves) scale = std::max(scale, size);
        out[k] = moves ? 100 * (faster[k] - slower[k]) / scale : kNotComputed;
    }
    block.Finish(kMACDSlots[l], first);
}

void ComputeDerivative(std::size_t l, const double* level, IndicatorBlock& block) {
    constexpr double kPoints = kDerivativeSpan + 1;
    const double* const squares = block.Work(WorkArray::Squares);
    double* const out = block[kDerSlots[l]];
    const std::size_t first = kRegressionLengths[l] + kDerivativeSpan;
    for (std::size_t k = first; k <= block.BarCount(); ++k) {
        double sum = 0;
        double productSum = 0;
        for (std::size_t j = k - kDerivativeSpan; j <= k; ++j) {
            sum += level[j];
            productSum += static_cast<double>(j) * level[j];
        }
        const double meanX = static_cast<double>(4 * k - 6) / kPoints;
        const double meanXX = (squares[k] - squares[k - kDerivativeSpan - 1]) / kPoints;
        out[k] = (productSum / kPoints - meanX * (sum / kPoints)) / (meanXX - meanX * meanX);
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
