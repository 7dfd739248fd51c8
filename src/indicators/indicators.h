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

struct Indicators : IndicatorScalars {
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
    // Percent, unrounded; read it through PercentChangeAt.
    NumberSeries PercentChange;
    NumberSeries SalesPerShare, EarningsPerSales, ForwardPE;
    NumberSeries Sales, Earnings, EstimatedEarnings;  // currency units, not millions
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

struct NamedIndicator {
    std::string_view name;
    IndicatorArray array;
    // The first bar that a run with enough bars writes.
    std::size_t firstBar;
};

// Every array by its name, in the order of the fields above.
inline constexpr std::array<NamedIndicator, 75> kIndicatorArrays = {{
    {"MA15", &Indicators::MA15, 15},
    {"MA30", &Indicators::MA30, 30},
    {"MA60", &Indicators::MA60, 60},
    {"MA90", &Indicators::MA90, 90},
    {"MA120", &Indicators::MA120, 120},
    {"MA180", &Indicators::MA180, 180},
    {"WMA15", &Indicators::WMA15, 15},
    {"WMA30", &Indicators::WMA30, 30},
    {"WMA60", &Indicators::WMA60, 60},
    {"WMA90", &Indicators::WMA90, 90},
    {"WMA120", &Indicators::WMA120, 120},
    {"WMA180", &Indicators::WMA180, 180},
    {"VolumeWMA15", &Indicators::VolumeWMA15, 15},
    {"VolumeWMA30", &Indicators::VolumeWMA30, 30},
    {"MLR15", &Indicators::MLR15, 15},
    {"MLR30", &Indicators::MLR30, 30},
    {"MLR60", &Indicators::MLR60, 60},
    {"MLR90", &Indicators::MLR90, 90},
    {"MLR120", &Indicators::MLR120, 120},
    {"MLRSlope15", &Indicators::MLRSlope15, 15},
    {"MLRSlope30", &Indicators::MLRSlope30, 30},
    {"MLRSlope60", &Indicators::MLRSlope60, 60},
    {"MLRSlope90", &Indicators::MLRSlope90, 90},
    {"MLRSlope120", &Indicators::MLRSlope120, 120},
    {"MLRIntercept15", &Indicators::MLRIntercept15, 15},
    {"MLRIntercept30", &Indicators::MLRIntercept30, 30},
    {"MLRIntercept60", &Indicators::MLRIntercept60, 60},
    {"MLRIntercept90", &Indicators::MLRIntercept90, 90},
    {"MLRIntercept120", &Indicators::MLRIntercept120, 120},
    {"LooseUCL15", &Indicators::LooseUCL15, 15},
    {"LooseUCL30", &Indicators::LooseUCL30, 30},
    {"LooseUCL60", &Indicators::LooseUCL60, 60},
    {"LooseUCL90", &Indicators::LooseUCL90, 90},
    {"LooseUCL120", &Indicators::LooseUCL120, 120},
    {"LooseLCL15", &Indicators::LooseLCL15, 15},
    {"LooseLCL30", &Indicators::LooseLCL30, 30},
    {"LooseLCL60", &Indicators::LooseLCL60, 60},
    {"LooseLCL90", &Indicators::LooseLCL90, 90},
    {"LooseLCL120", &Indicators::LooseLCL120, 120},
    {"TightUCL15", &Indicators::TightUCL15, 15},
    {"TightUCL30", &Indicators::TightUCL30, 30},
    {"TightUCL60", &Indicators::TightUCL60, 60},
    {"TightUCL90", &Indicators::TightUCL90, 90},
    {"TightUCL120", &Indicators::TightUCL120, 120},
    {"TightLCL15", &Indicators::TightLCL15, 15},
    {"TightLCL30", &Indicators::TightLCL30, 30},
    {"TightLCL60", &Indicators::TightLCL60, 60},
    {"TightLCL90", &Indicators::TightLCL90, 90},
    {"TightLCL120", &Indicators::TightLCL120, 120},
    {"LRPrice", &Indicators::LRPrice, 1},
    {"LRVolume", &Indicators::LRVolume, 1},
    {"MLRDer15", &Indicators::MLRDer15, 18},
    {"MLRDer30", &Indicators::MLRDer30, 33},
    {"MLRDer60", &Indicators::MLRDer60, 63},
    {"MLRDer90", &Indicators::MLRDer90, 93},
    {"Momentum15", &Indicators::Momentum15, 15},
    {"Momentum30", &Indicators::Momentum30, 30},
    {"Momentum60", &Indicators::Momentum60, 60},
    {"RSI15", &Indicators::RSI15, 15},
    {"RSI30", &Indicators::RSI30, 30},
    {"McClellan15", &Indicators::McClellan15, 15},
    {"McClellan30", &Indicators::McClellan30, 30},
    {"Stochastic15", &Indicators::Stochastic15, 15},
    {"Stochastic30", &Indicators::Stochastic30, 30},
    {"Stochastic60", &Indicators::Stochastic60, 60},
    {"Stochastic90", &Indicators::Stochastic90, 90},
    {"MACD15", &Indicators::MACD15, 30},
    {"MACD30", &Indicators::MACD30, 60},
    {"PercentChange", &Indicators::PercentChange, 1},
    {"SalesPerShare", &Indicators::SalesPerShare, 1},
    {"EarningsPerSales", &Indicators::EarningsPerSales, 1},
    {"ForwardPE", &Indicators::ForwardPE, 1},
    {"Sales", &Indicators::Sales, 1},
    {"Earnings", &Indicators::Earnings, 1},
    {"EstimatedEarnings", &Indicators::EstimatedEarnings, 1},
}};

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
