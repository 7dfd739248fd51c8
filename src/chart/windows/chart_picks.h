// The three lists of the chart's window, in which series and the study are chosen.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "chart/chart_actions.h"
#include "chart/pick_lists.h"

namespace brantlow {

struct PickList {
    std::string_view control;
    const char* words;
    const char* accessibleName;
    std::span<const std::string_view> items;
    std::string ChartSession::*text;
    void (*pick)(ChartContext& context, std::string_view item);
};
inline constexpr std::array kPickLists = {
    PickList{"Combo1", "&Price series", "Series on the price panel", kPriceSeriesItems, &ChartSession::Combo1,
             &PickPriceSeries},
    PickList{"Combo2", "S&tudy", "Study", kStudyItems, &ChartSession::Combo2, &PickStudy},
    PickList{"Combo3", "Vol&ume series", "Series on the volume panel", kVolumeSeriesItems,
             &ChartSession::Combo3, &PickVolumeSeries},
};

}  // namespace brantlow
