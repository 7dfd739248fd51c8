// The items of the chart window's three pick lists, in their order, and the text that each list starts with.
// The window fills its lists from here, the drawing tables (series_tables.h) and the batch tool know the same
// names.
#pragma once

#include <array>
#include <string_view>

namespace brantlow {

// Combo1: series on the price panel.
inline constexpr std::string_view kPriceName = "Price";
inline constexpr std::array<std::string_view, 31> kPriceSeriesItems = {
    kPriceName,     "MA 15",       "MA 30",       "MA 60",        "MA 90",        "MA 120",
    "MA 180",       "WMA 15",      "WMA 30",      "WMA 60",       "WMA 90",       "WMA 120",
    "WMA 180",      "MLR 15",      "MLR 30",      "MLR 60",       "MLR 90",       "MLR 120",
    "MLR 15 T.CL",  "MLR 30 T.CL", "MLR 60 T.CL", "MLR 90 T.CL",  "MLR 120 T.CL", "MLR 15 L.CL",
    "MLR 30 L.CL",  "MLR 60 L.CL", "MLR 90 L.CL", "MLR 120 L.CL", "LR T.CL",      "LR L.CL",
    "LR MINMAX CL",
};

// Combo2: the study. The misspelt names are the ones that users know.
inline constexpr std::string_view kFirstStudy = "MLR Der 30";
inline constexpr std::array<std::string_view, 27> kStudyItems = {
    "MLR Der 15",
    "MLR Der 30",
    "MLR Der 60",
    "MLR Der 90",
    "Momentum 15",
    "Momentum 30",
    "Momentum 60",
    "MLR Dif 15",
    "MLR Dif 30",
    "MLR Dif 60",
    "RSI 15",
    "RSI 30",
    "McClellan Osciallator 15",
    "McClellan Osciallator 30",
    "Stochastics 15",
    "Stochastics 30",
    "Stochastics 60",
    "Stochastics 90",
    "MACD 15",
    "MACD 30",
    "Price To Sales",
    "Price To Earnings",
    "Price To Earnings To Growth",
    "Earnings Per Share est",
    "Earnings Per Share ttm",
    "Sales Per Share",
    "Earnings To Sales",
};

// Combo3: series on the volume panel.
inline constexpr std::string_view kVolumeName = "Volume";
inline constexpr std::array<std::string_view, 7> kVolumeSeriesItems = {
    kVolumeName, "Average", "LR", "L. UCL", "T. UCL", "WMA 15", "WMA 30",
};

}  // namespace brantlow
