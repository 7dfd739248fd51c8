// The names under which the working series is printed, in the order of the output. The indicators have theirs
// in indicators/indicators.h.
#pragma once

#include <array>
#include <string_view>

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

}  // namespace brantlow
