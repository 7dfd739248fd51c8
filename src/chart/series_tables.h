// What stands behind the names of the chart's pick lists: values, colours and the bars from which they count,
// one table for each family of series. The paint routines read them; a new series is a new row.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "chart/drawing.h"
#include "indicators/indicators.h"
#include "indicators/working_series.h"

namespace brantlow {

// A series of the price panel, one segment from bar to bar. Without `upper` the centre is drawn; with it two
// lines, offset from the centre by `upper` and `lower`.
struct PriceSeries {
    std::string_view name;
    IndicatorArray centre;
    IndicatorArray upper;
    IndicatorArray lower;
    // The first bar to which a segment is drawn.
    std::size_t fromBar;
    Rgb line;
    // Of the caption of its slot. It differs from the line's in places.
    Rgb caption;
};

inline constexpr std::array<PriceSeries, 27> kPriceSeries = {{
    {"MA 15", &Indicators::MA15, nullptr, nullptr, 16, {0, 100, 0}, {0, 100, 0}},
    {"MA 30", &Indicators::MA30, nullptr, nullptr, 31, {0, 150, 0}, {0, 150, 0}},
    {"MA 60", &Indicators::MA60, nullptr, nullptr, 61, {0, 180, 0}, {0, 180, 0}},
    {"MA 90", &Indicators::MA90, nullptr, nullptr, 91, {0, 200, 0}, {0, 200, 0}},
    {"MA 120", &Indicators::MA120, nullptr, nullptr, 121, {0, 220, 0}, {0, 220, 0}},
    {"MA 180", &Indicators::MA180, nullptr, nullptr, 181, {0, 250, 0}, {0, 250, 0}},
    {"WMA 15", &Indicators::WMA15, nullptr, nullptr, 16, {0, 0, 100}, {0, 0, 100}},
    {"WMA 30", &Indicators::WMA30, nullptr, nullptr, 31, {0, 0, 150}, {10, 10, 150}},
    {"WMA 60", &Indicators::WMA60, nullptr, nullptr, 61, {0, 0, 180}, {20, 20, 190}},
    {"WMA 90", &Indicators::WMA90, nullptr, nullptr, 91, {0, 0, 200}, {30, 30, 220}},
    {"WMA 120", &Indicators::WMA120, nullptr, nullptr, 121, {0, 0, 220}, {40, 40, 250}},
    {"WMA 180", &Indicators::WMA180, nullptr, nullptr, 181, {0, 0, 250}, {70, 70, 255}},
    {"MLR 15", &Indicators::MLR15, nullptr, nullptr, 16, {255, 100, 50}, {255, 80, 50}},
    {"MLR 30", &Indicators::MLR30, nullptr, nullptr, 31, {255, 120, 50}, {255, 120, 50}},
    {"MLR 60", &Indicators::MLR60, nullptr, nullptr, 61, {255, 140, 50}, {255, 160, 50}},
    {"MLR 90", &Indicators::MLR90, nullptr, nullptr, 91, {255, 160, 50}, {255, 200, 50}},
    {"MLR 120", &Indicators::MLR120, nullptr, nullptr, 121, {255, 180, 50}, {255, 240, 50}},
    {"MLR 15 L.CL",
     &Indicators::MLR15,
     &Indicators::LooseUCL15,
     &Indicators::LooseLCL15,
     16,
     {100, 0, 0},
     {100, 0, 0}},
    {"MLR 30 L.CL",
     &Indicators::MLR30,
     &Indicators::LooseUCL30,
     &Indicators::LooseLCL30,
     31,
     {150, 0, 0},
     {150, 0, 0}},
    {"MLR 60 L.CL",
     &Indicators::MLR60,
     &Indicators::LooseUCL60,
     &Indicators::LooseLCL60,
     61,
     {180, 0, 0},
     {180, 0, 0}},
    {"MLR 90 L.CL",
     &Indicators::MLR90,
     &Indicators::LooseUCL90,
     &Indicators::LooseLCL90,
     91,
     {200, 0, 0},
     {200, 0, 0}},
    {"MLR 120 L.CL",
     &Indicators::MLR120,
     &Indicators::LooseUCL120,
     &Indicators::LooseLCL120,
     121,
     {220, 0, 0},
     {220, 0, 0}},
    {"MLR 15 T.CL",
     &Indicators::MLR15,
     &Indicators::TightUCL15,
     &Indicators::TightLCL15,
     16,
     {100, 0, 100},
     {100, 0, 100}},
    {"MLR 30 T.CL",
     &Indicators::MLR30,
     &Indicators::TightUCL30,
     &Indicators::TightLCL30,
     31,
     {150, 0, 100},
     {150, 0, 100}},
    {"MLR 60 T.CL",
     &Indicators::MLR60,
     &Indicators::TightUCL60,
     &Indicators::TightLCL60,
     61,
     {180, 0, 100},
     {180, 0, 100}},
    {"MLR 90 T.CL",
     &Indicators::MLR90,
     &Indicators::TightUCL90,
     &Indicators::TightLCL90,
     91,
     {200, 0, 100},
     {200, 0, 100}},
    {"MLR 120 T.CL",
     &Indicators::MLR120,
     &Indicators::TightUCL120,
     &Indicators::TightLCL120,
     121,
     {220, 0, 100},
     {220, 0, 100}},
}};

// One value for the whole window.
using WindowOffset = double Indicators::*;

// Two straight lines, offset from the regression of the whole window, which is drawn with them.
struct WholeWindowSeries {
    std::string_view name;
    WindowOffset upper;
    WindowOffset lower;
    // Of the two lines and the caption.
    Rgb colour;
};

inline constexpr Rgb kRegressionColour = {100, 100, 100};
inline constexpr std::array<WholeWindowSeries, 3> kWholeWindowSeries = {{
    {"LR T.CL", &Indicators::LRTightUCL, &Indicators::LRTightLCL, {0, 200, 150}},
    {"LR L.CL", &Indicators::LRLooseUCL, &Indicators::LRLooseLCL, {200, 50, 100}},
    {"LR MINMAX CL", &Indicators::LRMaxResidual, &Indicators::LRMinResidual, {100, 50, 150}},
}};

using StoredSeries = NumberSeries WorkingSeries::*;

// How a study's bars are drawn; study_panel.cpp tells each.
enum class StudyStyle : unsigned char { Trend, Sign, TwoTests, Plain, Midline, Band };

// The bounds of a study's scale are fixed, whatever its values.
inline constexpr std::size_t kFixedRange = 0;

struct Study {
    std::string_view name;
    // One of the two; `subtracted` is taken from `computed`.
    IndicatorArray computed;
    IndicatorArray subtracted;
    StoredSeries stored;
    // The first bar that counts for the scale, and the first one drawn.
    std::size_t rangeFrom;
    std::size_t drawFrom;
    StudyStyle style;
    // Of the band style, and of the midline style: the first bar with a segment of the midline.
    double upperLevel = 0;
    double lowerLevel = 0;
    std::size_t midlineFrom = 0;
    // What the read-out shows where it is another series than the one drawn.
    IndicatorArray readOut = nullptr;
};

inline constexpr std::array<Study, 27> kStudies = {{
    {"Momentum 15", &Indicators::Momentum15, nullptr, nullptr, 16, 16, StudyStyle::Trend},
    {"Momentum 30", &Indicators::Momentum30, nullptr, nullptr, 31, 31, StudyStyle::Trend},
    {"Momentum 60", &Indicators::Momentum60, nullptr, nullptr, 61, 61, StudyStyle::Trend},
    {"RSI 15", &Indicators::RSI15, nullptr, nullptr, kFixedRange, 16, StudyStyle::Band, 70, 30},
    {"RSI 30", &Indicators::RSI30, nullptr, nullptr, kFixedRange, 31, StudyStyle::Band, 65, 35},
    {"McClellan Osciallator 15", &Indicators::McClellan15, nullptr, nullptr, 31, 31, StudyStyle::TwoTests},
    {"McClellan Osciallator 30", &Indicators::McClellan30, nullptr, nullptr, 61, 61, StudyStyle::TwoTests},
    {"MLR Der 15", &Indicators::MLRDer15, nullptr, nullptr, 21, 20, StudyStyle::Sign},
    {"MLR Der 30", &Indicators::MLRDer30, nullptr, nullptr, 36, 35, StudyStyle::Sign},
    {"MLR Der 60", &Indicators::MLRDer60, nullptr, nullptr, 66, 65, StudyStyle::Sign},
    {"MLR Der 90", &Indicators::MLRDer90, nullptr, nullptr, 96, 95, StudyStyle::Sign},
    {"MLR Dif 15", &Indicators::MLR15, &Indicators::MLR30, nullptr, 31, 31, StudyStyle::Trend},
    {"MLR Dif 30", &Indicators::MLR30, &Indicators::MLR60, nullptr, 61, 61, StudyStyle::Trend},
    {"MLR Dif 60", &Indicators::MLR60, &Indicators::MLR90, nullptr, 91, 91, StudyStyle::Trend},
    {"MACD 15", &Indicators::MACD15, nullptr, nullptr, 17, 31, StudyStyle::Trend},
    {"MACD 30", &Indicators::MACD30, nullptr, nullptr, 32, 61, StudyStyle::Trend},
    {"Stochastics 15", &Indicators::Stochastic15, nullptr, nullptr, 16, 16, StudyStyle::Midline, {}, {}, 1},
    {"Stochastics 30", &Indicators::Stochastic30, nullptr, nullptr, 31, 31, StudyStyle::Midline, {}, {}, 31},
    {"Stochastics 60", &Indicators::Stochastic60, nullptr, nullptr, 61, 61, StudyStyle::Midline, {}, {}, 61},
    // The read-out under the 90 bars' picture is that of 60 bars.
    {"Stochastics 90",
     &Indicators::Stochastic90,
     nullptr,
     nullptr,
     91,
     91,
     StudyStyle::Midline,
     {},
     {},
     91,
     &Indicators::Stochastic60},
    {"Price To Sales", nullptr, nullptr, &WorkingSeries::PriceToSales, 1, 1, StudyStyle::Plain},
    {"Price To Earnings", nullptr, nullptr, &WorkingSeries::PERatio, 1, 1, StudyStyle::Plain},
    {"Price To Earnings To Growth", nullptr, nullptr, &WorkingSeries::PEGRatio, 1, 1, StudyStyle::Plain},
    {"Earnings Per Share est", nullptr, nullptr, &WorkingSeries::EPSest, 1, 1, StudyStyle::Plain},
    {"Earnings Per Share ttm", nullptr, nullptr, &WorkingSeries::EPSttm, 1, 1, StudyStyle::Plain},
    {"Earnings To Sales", &Indicators::EarningsPerSales, nullptr, nullptr, 1, 1, StudyStyle::Plain},
    {"Sales Per Share", &Indicators::SalesPerShare, nullptr, nullptr, 1, 1, StudyStyle::Plain},
}};

// Series of the volume panel but for the bars of the volume itself. One of three kinds: a level for the whole
// window, segments of an array, or a straight line along the volume's regression, with an offset or without.
struct VolumeSeries {
    std::string_view name;
    WindowOffset level;
    IndicatorArray array;
    std::size_t fromBar;
    bool isRegression;
    WindowOffset offset;
    Rgb colour;
};

inline constexpr std::array<VolumeSeries, 6> kVolumeSeries = {{
    {"Average", &Indicators::AverageVolume, nullptr, 1, false, nullptr, {1, 1, 1}},
    {"LR", nullptr, nullptr, 1, true, nullptr, {255, 180, 55}},
    {"L. UCL", nullptr, nullptr, 1, true, &Indicators::VolumeLooseUCL, {55, 80, 255}},
    {"T. UCL", nullptr, nullptr, 1, true, &Indicators::VolumeTightUCL, {55, 50, 125}},
    {"WMA 15", nullptr, &Indicators::VolumeWMA15, 16, false, nullptr, {255, 40, 80}},
    {"WMA 30", nullptr, &Indicators::VolumeWMA30, 31, false, nullptr, {180, 70, 255}},
}};

// The row of `table` with this name, or null.
template <typename Row, std::size_t Count>
constexpr const Row* RowNamed(const std::array<Row, Count>& table, std::string_view name) {
    for (const Row& row : table) {
        if (row.name == name) return &row;
    }
    return nullptr;
}

}  // namespace brantlow
