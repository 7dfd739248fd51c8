// Every indicator array and scalar that ComputeIndicators fills from the working series. L is a window length
// in bars; an array element k below its L is never written. Band arrays hold offsets from the MLR line of
// their length, not levels.
#pragma once

#include <array>
#include <string_view>

#include "indicators/number_series.h"
#include "indicators/working_series.h"

namespace brantlow {

// The values that belong to the whole window.
struct IndicatorScalars {
    double LRSlope = 0, LRIntercept = 0;
    double LRTightUCL = 0, LRLooseUCL = 0, LRTightLCL = 0, LRLooseLCL = 0;
    double LRMaxResidual = 0, LRMinResidual = 0;
    double MaxVolume = 0, AverageVolume = 0;
    double VolumeTightUCL = 0, VolumeLooseUCL = 0;
};

// The one list of the arrays: each with the first bar that a run with enough bars writes. PercentChange is in
// percent and unrounded: it is read through PercentChangeAt. Sales, earnings and their estimate are in
// currency units, not in millions.
// clang-format off
#define BRANTLOW_INDICATOR_ARRAYS(ROW) \
    ROW(MA15, 15) ROW(MA30, 30) ROW(MA60, 60) ROW(MA90, 90) ROW(MA120, 120) ROW(MA180, 180) \
    ROW(WMA15, 15) ROW(WMA30, 30) ROW(WMA60, 60) ROW(WMA90, 90) ROW(WMA120, 120) ROW(WMA180, 180) \
    ROW(VolumeWMA15, 15) ROW(VolumeWMA30, 30) \
    ROW(MLR15, 15) ROW(MLR30, 30) ROW(MLR60, 60) ROW(MLR90, 90) ROW(MLR120, 120) \
    ROW(MLRSlope15, 15) ROW(MLRSlope30, 30) ROW(MLRSlope60, 60) ROW(MLRSlope90, 90) ROW(MLRSlope120, 120) \
    ROW(MLRIntercept15, 15) ROW(MLRIntercept30, 30) ROW(MLRIntercept60, 60) ROW(MLRIntercept90, 90) ROW(MLRIntercept120, 120) \
    ROW(LooseUCL15, 15) ROW(LooseUCL30, 30) ROW(LooseUCL60, 60) ROW(LooseUCL90, 90) ROW(LooseUCL120, 120) \
    ROW(LooseLCL15, 15) ROW(LooseLCL30, 30) ROW(LooseLCL60, 60) ROW(LooseLCL90, 90) ROW(LooseLCL120, 120) \
    ROW(TightUCL15, 15) ROW(TightUCL30, 30) ROW(TightUCL60, 60) ROW(TightUCL90, 90) ROW(TightUCL120, 120) \
    ROW(TightLCL15, 15) ROW(TightLCL30, 30) ROW(TightLCL60, 60) ROW(TightLCL90, 90) ROW(TightLCL120, 120) \
    ROW(LRPrice, 1) ROW(LRVolume, 1) \
    ROW(MLRDer15, 18) ROW(MLRDer30, 33) ROW(MLRDer60, 63) ROW(MLRDer90, 93) \
    ROW(Momentum15, 15) ROW(Momentum30, 30) ROW(Momentum60, 60) \
    ROW(RSI15, 15) ROW(RSI30, 30) \
    ROW(McClellan15, 15) ROW(McClellan30, 30) \
    ROW(Stochastic15, 15) ROW(Stochastic30, 30) ROW(Stochastic60, 60) ROW(Stochastic90, 90) \
    ROW(MACD15, 30) ROW(MACD30, 60) \
    ROW(PercentChange, 1) ROW(SalesPerShare, 1) ROW(EarningsPerSales, 1) ROW(ForwardPE, 1) \
    ROW(Sales, 1) ROW(Earnings, 1) ROW(EstimatedEarnings, 1)
// clang-format on

struct Indicators : IndicatorScalars {
#define BRANTLOW_FIELD(name, firstBar) NumberSeries name;
    BRANTLOW_INDICATOR_ARRAYS(BRANTLOW_FIELD)
#undef BRANTLOW_FIELD
};

using IndicatorArray = NumberSeries Indicators::*;

struct NamedIndicator {
    std::string_view name;
    IndicatorArray array;
    // The first bar that a run with enough bars writes.
    std::size_t firstBar;
};

// Every array by its name, in the order of the list.
inline constexpr std::array kIndicatorArrays = {
#define BRANTLOW_ROW(name, firstBar) NamedIndicator{#name, &Indicators::name, firstBar},
    BRANTLOW_INDICATOR_ARRAYS(BRANTLOW_ROW)
#undef BRANTLOW_ROW
};
#undef BRANTLOW_INDICATOR_ARRAYS

// The window lengths and the arrays that go with them, shortest first.
inline constexpr std::array<std::size_t, 6> kAverageLengths = {15, 30, 60, 90, 120, 180};
inline constexpr std::array<std::size_t, 5> kRegressionLengths = {15, 30, 60, 90, 120};

// The arrays of one name, from that of the shortest length on; as many as stand in the list behind it.
template <std::size_t kCount>
consteval std::array<IndicatorArray, kCount> ArraysFrom(std::string_view shortest) {
    std::size_t first = 0;
    while (kIndicatorArrays[first].name != shortest) ++first;
    std::array<IndicatorArray, kCount> arrays{};
    for (std::size_t i = 0; i < kCount; ++i) arrays[i] = kIndicatorArrays[first + i].array;
    return arrays;
}

inline constexpr auto kMA = ArraysFrom<kAverageLengths.size()>("MA15");
inline constexpr auto kWMA = ArraysFrom<kAverageLengths.size()>("WMA15");
inline constexpr auto kMLR = ArraysFrom<kRegressionLengths.size()>("MLR15");
inline constexpr auto kMLRSlope = ArraysFrom<kRegressionLengths.size()>("MLRSlope15");
inline constexpr auto kMLRIntercept = ArraysFrom<kRegressionLengths.size()>("MLRIntercept15");
inline constexpr auto kLooseUCL = ArraysFrom<kRegressionLengths.size()>("LooseUCL15");
inline constexpr auto kLooseLCL = ArraysFrom<kRegressionLengths.size()>("LooseLCL15");
inline constexpr auto kTightUCL = ArraysFrom<kRegressionLengths.size()>("TightUCL15");
inline constexpr auto kTightLCL = ArraysFrom<kRegressionLengths.size()>("TightLCL15");

// Every scalar by its name, in the order of the output.
struct IndicatorScalarName {
    std::string_view name;
    double Indicators::*value;
};

inline constexpr std::array<IndicatorScalarName, 12> kIndicatorScalarNames = {{
    {"LRSlope", &Indicators::LRSlope},
    {"LRIntercept", &Indicators::LRIntercept},
    {"LRTightUCL", &Indicators::LRTightUCL},
    {"LRLooseUCL", &Indicators::LRLooseUCL},
    {"LRTightLCL", &Indicators::LRTightLCL},
    {"LRLooseLCL", &Indicators::LRLooseLCL},
    {"LRMaxResidual", &Indicators::LRMaxResidual},
    {"LRMinResidual", &Indicators::LRMinResidual},
    {"MaxVolume", &Indicators::MaxVolume},
    {"AverageVolume", &Indicators::AverageVolume},
    {"VolumeTightUCL", &Indicators::VolumeTightUCL},
    {"VolumeLooseUCL", &Indicators::VolumeLooseUCL},
}};

// Fills `indicators` for bars 1 to BarCount of a series that is loaded, folded and windowed. With 3 bars or
// fewer the scalars become 0 and every array keeps what it held. A value that cannot be computed (a division
// by zero, a result that is not finite) is not stored: its element keeps what it held.
// Elements above BarCount are not touched. A value made of others of the same bar (a level of a slope and an
// intercept, say) takes what their elements hold once they are stored, so an earlier ticker's value where one
// of them could not be computed.
void ComputeIndicators(const WorkingSeries& series, Indicators& indicators);

// The change of bar `i` in percent as every consumer sees it: rounded to the fifteen significant digits of
// its text in the general number form. 0 where nothing was written.
double PercentChangeAt(const Indicators& indicators, std::size_t i);

}  // namespace brantlow
