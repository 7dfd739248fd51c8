// The names under which the working series and the scalars of the indicators are printed, in the order of the
// output. The indicator arrays have theirs in kIndicatorArrays.
#pragma once

#include <array>
#include <string_view>

#include "indicators/indicators.h"
#include "indicators/working_series.h"

namespace brantlow {

// One array of the working series: of numbers or of text.
struct SeriesName {
    std::string_view name;
    NumberSeries WorkingSeries::*numbers;
    TextSeries WorkingSeries::*texts;
};

inline constexpr std::array<SeriesName, 19> kSeriesNames = {{
    {"QuoteDate", nullptr, &WorkingSeries::QuoteDate},
    {"QuoteTime", nullptr, &WorkingSeries::QuoteTime},
    {"ClosePrice", &WorkingSeries::ClosePrice, nullptr},
    {"LowPrice", &WorkingSeries::LowPrice, nullptr},
    {"HighPrice", &WorkingSeries::HighPrice, nullptr},
    {"Volume", &WorkingSeries::Volume, nullptr},
    {"PERatio", &WorkingSeries::PERatio, nullptr},
    {"EPSttm", &WorkingSeries::EPSttm, nullptr},
    {"PEGRatio", &WorkingSeries::PEGRatio, nullptr},
    {"EPSest", &WorkingSeries::EPSest, nullptr},
    {"DividendPerShare", &WorkingSeries::DividendPerShare, nullptr},
    {"DividendPayDate", nullptr, &WorkingSeries::DividendPayDate},
    {"ExDividendDate", nullptr, &WorkingSeries::ExDividendDate},
    {"PreviousClose", &WorkingSeries::PreviousClose, nullptr},
    {"Low52Week", &WorkingSeries::Low52Week, nullptr},
    {"High52Week", &WorkingSeries::High52Week, nullptr},
    {"PriceToSales", &WorkingSeries::PriceToSales, nullptr},
    {"MarketCap", &WorkingSeries::MarketCap, nullptr},
    {"OpenPrice", &WorkingSeries::OpenPrice, nullptr},
}};

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

}  // namespace brantlow
