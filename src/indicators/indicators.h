// Every indicator array and scalar that ComputeIndicators fills from the working series. L is a window length
// in bars; an array element k below its L is never written. Band arrays hold offsets from the MLR line of
// their length, not levels.
#pragma once

#include <array>

#include "indicators/number_series.h"
#include "indicators/working_series.h"

namespace brantlow {

struct Indicators {
    NumberSeries MA15, MA30, MA60, MA90, MA120, MA180;
    NumberSeries WMA15, WMA30, WMA60, WMA90, WMA120, WMA180;
    NumberSeries VolumeWMA15, VolumeWMA30;
    NumberSeries MLR15, MLR30, MLR60, MLR90, MLR120;
    NumberSeries MLRSlope15, MLRSlope30, MLRSlope60, MLRSlope90, MLRSlope120;
    NumberSeries MLRIntercept15, MLRIntercept30, MLRIntercept60, MLRIntercept90, MLRIntercept120;
    NumberSeries LooseUCL15, LooseUCL30, LooseUCL60, LooseUCL90, LooseUCL120;
    NumberSeries LooseLCL15, LooseLCL30, LooseLCL60, LooseLCL90, LooseLCL120;
    NumberSeries TightUCL15, TightUCL30, TightUCL60, TightUCL90, TightUCL120;
    NumberSeries TightLCL15, TightLCL30, TightLCL60, TightLCL90, TightLCL120;
    NumberSeries LRPrice, LRVolume;
    NumberSeries MLRDer15, MLRDer30, MLRDer60, MLRDer90;
    NumberSeries Momentum15, Momentum30, Momentum60;
    NumberSeries RSI15, RSI30;
    NumberSeries McClellan15, McClellan30;
    NumberSeries Stochastic15, Stochastic30, Stochastic60, Stochastic90;
    NumberSeries MACD15, MACD30;
    // Percent, as the number that its text in the general number form (15 significant digits) reads as.
    NumberSeries PercentChange;
    NumberSeries SalesPerShare, EarningsPerSales, ForwardPE;
    NumberSeries Sales, Earnings, EstimatedEarnings;  // currency units, not millions

    double LRSlope = 0, LRIntercept = 0;
    double LRTightUCL = 0, LRLooseUCL = 0, LRTightLCL = 0, LRLooseLCL = 0;
    double LRMaxResidual = 0, LRMinResidual = 0;
    double MaxVolume = 0, AverageVolume = 0;
    double VolumeTightUCL = 0, VolumeLooseUCL = 0;
};

// The window lengths and the arrays that go with them, shortest first.
inline constexpr std::array<std::size_t, 6> kAverageLengths = {15, 30, 60, 90, 120, 180};
inline constexpr std::array<std::size_t, 5> kRegressionLengths = {15, 30, 60, 90, 120};

using IndicatorArray = NumberSeries Indicators::*;

inline constexpr std::array<IndicatorArray, 6> kMA = {&Indicators::MA15,  &Indicators::MA30,
                                                      &Indicators::MA60,  &Indicators::MA90,
                                                      &Indicators::MA120, &Indicators::MA180};
inline constexpr std::array<IndicatorArray, 6> kWMA = {&Indicators::WMA15,  &Indicators::WMA30,
                                                       &Indicators::WMA60,  &Indicators::WMA90,
                                                       &Indicators::WMA120, &Indicators::WMA180};
inline constexpr std::array<IndicatorArray, 5> kMLR = {
    &Indicators::MLR15, &Indicators::MLR30, &Indicators::MLR60, &Indicators::MLR90, &Indicators::MLR120};
inline constexpr std::array<IndicatorArray, 5> kMLRSlope = {&Indicators::MLRSlope15, &Indicators::MLRSlope30,
                                                            &Indicators::MLRSlope60, &Indicators::MLRSlope90,
                                                            &Indicators::MLRSlope120};
inline constexpr std::array<IndicatorArray, 5> kMLRIntercept = {
    &Indicators::MLRIntercept15, &Indicators::MLRIntercept30, &Indicators::MLRIntercept60,
    &Indicators::MLRIntercept90, &Indicators::MLRIntercept120};
inline constexpr std::array<IndicatorArray, 5> kLooseUCL = {&Indicators::LooseUCL15, &Indicators::LooseUCL30,
                                                            &Indicators::LooseUCL60, &Indicators::LooseUCL90,
                                                            &Indicators::LooseUCL120};
inline constexpr std::array<IndicatorArray, 5> kLooseLCL = {&Indicators::LooseLCL15, &Indicators::LooseLCL30,
                                                            &Indicators::LooseLCL60, &Indicators::LooseLCL90,
                                                            &Indicators::LooseLCL120};
inline constexpr std::array<IndicatorArray, 5> kTightUCL = {&Indicators::TightUCL15, &Indicators::TightUCL30,
                                                            &Indicators::TightUCL60, &Indicators::TightUCL90,
                                                            &Indicators::TightUCL120};
inline constexpr std::array<IndicatorArray, 5> kTightLCL = {&Indicators::TightLCL15, &Indicators::TightLCL30,
                                                            &Indicators::TightLCL60, &Indicators::TightLCL90,
                                                            &Indicators::TightLCL120};

// Fills `indicators` for bars 1 to BarCount of a series that is loaded, folded and windowed. With 3 bars or
// fewer the scalars become 0 and every array keeps what it held. A value that cannot be computed (a division
// by zero, a result that is not finite) is not stored: its element keeps what it held.
void ComputeIndicators(const WorkingSeries& series, Indicators& indicators);

}  // namespace brantlow
